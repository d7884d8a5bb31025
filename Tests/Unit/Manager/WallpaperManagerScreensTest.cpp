#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

class WallpaperManagerScreensTest : public ManagerTest
{
  protected:
    /// With a current wallpaper.
    QString startWithPicture(const QString &name = u"a.png"_s)
    {
        const QString path = putImage(name);
        store(SettingsKeys::kCurrentWallpaperPath, path);
        start();
        return path;
    }

    void changeScreens()
    {
        Q_EMIT screens.changed();
        manager->waitUntilIdle();
    }
};

} // namespace

TEST_F(WallpaperManagerScreensTest, aChangeAppliesTheCurrentWallpaperAgainAndSilently)
{
    const QString path = startWithPicture();
    EXPECT_TRUE(desktop.shown().isEmpty()) << "a start alone applies nothing";
    changeScreens();
    EXPECT_EQ(desktop.shown(), QStringList{path});
    changeScreens();
    EXPECT_EQ(desktop.shown(), (QStringList{path, path}));
    EXPECT_TRUE(statuses.isEmpty());
    EXPECT_FALSE(manager->isError());
}

TEST_F(WallpaperManagerScreensTest, anEarlierStatusStaysWhenAllGoesWell)
{
    const QString path = startWithPicture();
    generate(); // There is no key.
    const QString status = manager->status();
    changeScreens();
    EXPECT_EQ(desktop.shown(), QStringList{path});
    EXPECT_EQ(manager->status(), status);
    EXPECT_TRUE(manager->isError());
}

TEST_F(WallpaperManagerScreensTest, aRefusalIsTold)
{
    const QString path = startWithPicture();
    desktop.refusal = u"no room"_s;
    changeScreens();
    EXPECT_EQ(manager->status(), u"Failed to sync wallpaper: no room"_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_EQ(manager->currentWallpaperURL(), path);
}

TEST_F(WallpaperManagerScreensTest, withoutACurrentWallpaperNothingHappens)
{
    start();
    changeScreens();
    EXPECT_TRUE(desktop.shown().isEmpty());
    EXPECT_TRUE(statuses.isEmpty());
}

TEST_F(WallpaperManagerScreensTest, aDeletedCurrentWallpaperChangesNothing)
{
    const QString path = startWithPicture();
    ASSERT_TRUE(QFile::remove(path));
    changeScreens();
    EXPECT_TRUE(desktop.shown().isEmpty());
    EXPECT_TRUE(statuses.isEmpty());
    EXPECT_EQ(manager->currentWallpaperURL(), path);
}

TEST_F(WallpaperManagerScreensTest, theLastScreenGoesSilentlyAndGetsItsPictureWhenItIsBack)
{
    const QString path = startWithPicture();
    const QList<Screen> attached = std::exchange(desktop.attached, {});
    changeScreens();
    EXPECT_TRUE(desktop.shown().isEmpty());
    EXPECT_TRUE(statuses.isEmpty());
    desktop.attached = attached;
    clock.sleep(std::chrono::minutes(20));
    changeScreens();
    EXPECT_EQ(desktop.shown(), QStringList{path});
}

TEST_F(WallpaperManagerScreensTest, changesWhileTheDesktopIsBusyAreOneMoreApplication)
{
    const QString path = startWithPicture();
    for (int change = 0; change < 10; ++change) {
        Q_EMIT screens.changed();
    }
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), (QStringList{path, path}));
}

TEST_F(WallpaperManagerScreensTest, aChangeWhileAPictureIsBeingSetDoesNotBringTheOldOneBack)
{
    const QString old = startWithPicture();
    const QString next = putImage(u"b.png"_s);
    manager->setWallpaper(next);
    Q_EMIT screens.changed();
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), (QStringList{next, next}));
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);

    desktop.refusal = u"no room"_s;
    manager->setWallpaper(old);
    Q_EMIT screens.changed();
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), (QStringList{next, next, old, next}));
    EXPECT_EQ(manager->status(), u"Failed to sync wallpaper: no room"_s);
}

TEST_F(WallpaperManagerScreensTest, whatGoesWithTheProgramIsSetAgainAtTheStartAndSilently)
{
    desktop.isGoneWithTheProgram = true;
    const QString path = startWithPicture();
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), QStringList{path});
    EXPECT_TRUE(statuses.isEmpty());
    QFile::remove(path);
    start().waitUntilIdle();
    EXPECT_EQ(desktop.shown(), QStringList{path}) << "a picture that is gone is not asked for";
}

TEST_F(WallpaperManagerScreensTest, theStatusTellsThatTheUserIsAskedAndTheEndStopsThat)
{
    start();
    desktop.question = u"Waiting for your answer"_s;
    manager->setWallpaper(putImage(u"a.png"_s));
    manager->waitUntilIdle();
    EXPECT_EQ(statuses, (QStringList{desktop.question, u"Wallpaper set!"_s}));
    EXPECT_TRUE(desktop.mayAsk);
    manager.reset();
    EXPECT_FALSE(desktop.mayAsk);
}

} // namespace quorvane
