// What only KDE Plasma has: it does not read a picture again under a name that it knows, and tells nobody what it could
// not draw. What every desktop has to show is SessionDesktopTest's.

#include "Platform/Desktops/DesktopPicturePlasma.h"

#include "SessionDesktopFixture.h"

#include "Support/Files.h"
#include "Support/Results.h"
#include "Support/WaitFor.h"

#include <QDir>

#include <gmock/gmock.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

class DesktopPicturePlasmaTest : public SessionDesktopFixture
{
  protected:
    void SetUp() override
    {
        const QList<TestedDesktop> &all = testedDesktops();
        const auto plasma =
            std::find_if(all.begin(), all.end(), [](const TestedDesktop &each) { return each.name == "plasma"_L1; });
        ASSERT_NE(plasma, all.end());
        ASSERT_NO_FATAL_FAILURE(prepare(*plasma));
        if (!IsSkipped()) {
            ASSERT_TRUE(desktop().start());
        }
    }

    [[nodiscard]] QStringList copies()
    {
        const QString home = desktop().session().environment().value(u"HOME"_s);
        return QDir(home + u"/.local/state/quorvane"_s).entryList(QDir::Files | QDir::Hidden);
    }
};

TEST_F(DesktopPicturePlasmaTest, fillsEveryScreenAndRefreshesTheSamePath)
{
    const QString name = QString::fromUtf8("o'brien $(touch x) #1 100% \"q\" ;\\ \n Ünïcødé 日本/one.png");
    const QString path = save(name, 40);
    ASSERT_EQ(failureToSet(path), "");
    EXPECT_EQ(waitForPicture(40), "");
    EXPECT_EQ(copies(), QStringList()) << "a new path needs no copy";

    // Plasma itself would go on showing what it once read under the name.
    ASSERT_EQ(failureToSet(save(name, 120)), "");
    EXPECT_EQ(waitForPicture(120), "");
    const QStringList first = copies();
    EXPECT_EQ(first.size(), 1);
    ASSERT_EQ(failureToSet(path), "");
    EXPECT_EQ(copies(), first) << "what is shown already is not copied again";
    ASSERT_EQ(failureToSet(save(name, 200)), "");
    EXPECT_EQ(waitForPicture(200), "");
    EXPECT_EQ(copies().size(), 1) << "the copy before is deleted";

    // A process that knows nothing of the one before.
    startProgram();
    ASSERT_EQ(failureToSet(save(name, 80)), "");
    EXPECT_EQ(waitForPicture(80), "");

    // Another picture in between.
    ASSERT_EQ(failureToSet(save(u"two.png"_s, 160)), "");
    EXPECT_EQ(waitForPicture(160), "");
    ASSERT_EQ(failureToSet(save(name, 240)), "");
    EXPECT_EQ(waitForPicture(240), "");
}

TEST_F(DesktopPicturePlasmaTest, aShellThatIsKilledOrHangsIsAnErrorAndTheNextOneShowsThePicture)
{
    const QString path = save(u"one.png"_s, 50);
    ASSERT_EQ(failureToSet(path), "");
    ASSERT_EQ(waitForPicture(50), "");
    EXPECT_THAT(failureToSet(path + u".missing"_s), testing::HasSubstr("cannot be read"));
    ASSERT_TRUE(putFile(path + u".broken"_s, "no picture"));
    EXPECT_NE(failureToSet(path + u".broken"_s), "");

    const QByteArray display = desktop().session().environment().value(u"DISPLAY"_s).toLatin1();
    DesktopPicturePlasma impatient(desktop().session().busAddress(), {{}, display}, QString(),
                                   std::chrono::milliseconds(500));
    desktop().freeze();
    EXPECT_NE(impatient.setPicture(save(u"two.png"_s, 130), impatient.screens()), kDone);
    ASSERT_TRUE(desktop().kill());
    EXPECT_THAT(failureToSet(path), testing::HasSubstr("org.kde.plasmashell is not on the session bus"));

    ASSERT_TRUE(desktop().startPainterAgain());
    const QString third = save(u"three.png"_s, 210);
    EXPECT_TRUE(waitFor([&] { return failureToSet(third).empty(); }));
    EXPECT_EQ(waitForPicture(210), "");
}

} // namespace quorvane
