#include "Manager/Undo/Deletions.h"

#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

using namespace std::chrono_literals;

class DeletionsTest : public ManagerTest
{
  protected:
    DeletionsTest()
    {
        picture = putImage(u"a.png"_s);
        EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, picture));
        EXPECT_TRUE(ImageStore::saveFavorite(u"a.png"_s));
        start().waitUntilIdle();
    }

    void remove()
    {
        manager->deletions().remove({picture});
        manager->waitUntilIdle();
    }
    void undo()
    {
        manager->deletions().undo().undo();
        manager->waitUntilIdle();
    }
    [[nodiscard]] QStringList setAside() const
    {
        return QDir(home.library()).entryList({u".deleted.*"_s}, QDir::AllEntries | QDir::Hidden);
    }

    QString picture;
};

TEST_F(DeletionsTest, areSeenEverywhereAtOnceAndTakenBackWhole)
{
    remove();
    EXPECT_TRUE(manager->history().isEmpty());
    EXPECT_TRUE(manager->favorites().isEmpty());
    EXPECT_TRUE(manager->albums().empty());
    EXPECT_EQ(sideFile("prompts.json"), "{}");

    QStringList back;
    QObject::connect(&manager->deletions(), &Deletions::broughtBack, manager.get(),
                     [&back](const QStringList &urls) { back = urls; });
    undo();
    EXPECT_EQ(back, QStringList{picture});
    EXPECT_EQ(manager->history(), QStringList{picture});
    EXPECT_EQ(manager->favorites(), QSet<QString>{u"a.png"_s});
    EXPECT_EQ(sideFile("prompts.json"), "{\"a.png\":\"a lake\"}");
    EXPECT_EQ(setAside(), QStringList());
}

TEST_F(DeletionsTest, areForGoodAfterTenSecondsAndAtTheEnd)
{
    const QString second = putImage(u"b.png"_s);
    remove();
    EXPECT_EQ(setAside().size(), 1);
    clock.pass(10s);
    manager->waitUntilIdle();
    EXPECT_EQ(setAside(), QStringList());

    manager->deletions().remove({second});
    manager.reset(); // While it is still under way.
    EXPECT_EQ(setAside(), QStringList());
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
}

TEST_F(DeletionsTest, goAtTheNextStartWhenTheProgramWasKilled)
{
    ASSERT_TRUE(QDir().mkpath(home.library() + u"/.deleted.AbCdEf"_s) &&
                putFile(home.library() + u"/.deleted.AbCdEf/0"_s, "left"));
    start().waitUntilIdle();
    EXPECT_EQ(setAside(), QStringList());
}

TEST_F(DeletionsTest, tellWhatCouldNotBeBroughtBackAndKeepIt)
{
    remove();
    ASSERT_TRUE(putFile(picture, "another"));
    undo();
    EXPECT_EQ(manager->problems(), QStringList{u"a.png could not be brought back: File exists"_s});
    EXPECT_TRUE(manager->deletions().undo().isOffered());
    ASSERT_TRUE(QFile::remove(picture));
    undo();
    EXPECT_EQ(contentOf(picture), "image a.png");
}

} // namespace quorvane
