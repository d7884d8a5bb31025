#include "Manager/Undo/Undo.h"

#include "Support/TestClock.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace quorvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class UndoTest : public testing::Test
{
  protected:
    void offer(const QString &name)
    {
        undo.offer(
            {[this, name] { told.append(u"undone "_s + name); }, [this, name] { told.append(u"settled "_s + name); }});
    }

    TestClock clock;
    Undo undo{&clock};
    QStringList told;
};

TEST_F(UndoTest, takesTheNewestStepBackAndEachOnce)
{
    offer(u"first"_s);
    offer(u"second"_s);
    undo.undo();
    undo.undo();
    EXPECT_FALSE(undo.isOffered());
    undo.undo();
    clock.pass(1min);
    EXPECT_EQ(told, (QStringList{u"undone second"_s, u"undone first"_s}));
}

TEST_F(UndoTest, letsEachStepStayTenSecondsAfterIt)
{
    offer(u"first"_s);
    clock.pass(6s);
    offer(u"second"_s);
    clock.pass(3999ms);
    EXPECT_EQ(told, QStringList());
    clock.pass(1ms);
    EXPECT_EQ(told, QStringList{u"settled first"_s});
    EXPECT_TRUE(undo.isOffered());
    clock.pass(6s);
    EXPECT_EQ(told, (QStringList{u"settled first"_s, u"settled second"_s}));
    EXPECT_FALSE(undo.isOffered());
}

TEST_F(UndoTest, tellsWhenTheOfferComesAndGoes)
{
    QList<bool> offered;
    QObject::connect(&undo, &Undo::isOfferedChanged, &undo, [&] { offered.append(undo.isOffered()); });
    offer(u"first"_s);
    undo.undo();
    offer(u"second"_s);
    clock.pass(10s);
    EXPECT_EQ(offered, (QList<bool>{true, false, true, false}));
}

TEST_F(UndoTest, offersWhatCouldNotBeTakenBackAfterAllOthersAndWithoutEnd)
{
    offer(u"older"_s);
    const auto again = [this] { told.append(u"again"_s); };
    undo.offer({[this, again] { undo.offerAgain({again, [] { FAIL(); }}); }, [] { FAIL(); }});
    undo.undo();
    undo.undo();
    EXPECT_EQ(told, QStringList{u"undone older"_s}) << "nothing stands in its way";
    offer(u"later"_s);
    clock.pass(1h);
    EXPECT_EQ(told, (QStringList{u"undone older"_s, u"settled later"_s}));
    EXPECT_TRUE(undo.isOffered());
    undo.undo();
    EXPECT_EQ(told.last(), u"again"_s);
}

TEST(UndoWithoutAClock, offersNothing)
{
    Undo undo(nullptr);
    int settled = 0;
    undo.offer({[] { FAIL(); }, [&settled] { ++settled; }});
    EXPECT_FALSE(undo.isOffered());
    undo.undo();
    EXPECT_EQ(settled, 1);
}

} // namespace quorvane
