#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

namespace {

class WallpaperManagerScreensTest : public ManagerTest
{
  protected:
    /// With a current wallpaper.
    QString startWithPicture(const QString &name = QStringLiteral("a.png"))
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
    desktop.refusal = QStringLiteral("no room");
    changeScreens();
    EXPECT_EQ(manager->status(), QStringLiteral("Failed to sync wallpaper: no room"));
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
    const QString next = putImage(QStringLiteral("b.png"));
    manager->setWallpaper(next);
    Q_EMIT screens.changed();
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), (QStringList{next, next}));
    EXPECT_EQ(manager->status(), QStringLiteral("Wallpaper set!"));

    desktop.refusal = QStringLiteral("no room");
    manager->setWallpaper(old);
    Q_EMIT screens.changed();
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), (QStringList{next, next, old, next}));
    EXPECT_EQ(manager->status(), QStringLiteral("Failed to sync wallpaper: no room"));
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
    desktop.question = QStringLiteral("Waiting for your answer");
    manager->setWallpaper(putImage(QStringLiteral("a.png")));
    manager->waitUntilIdle();
    EXPECT_EQ(statuses, (QStringList{desktop.question, QStringLiteral("Wallpaper set!")}));
    EXPECT_TRUE(desktop.mayAsk);
    manager.reset();
    EXPECT_FALSE(desktop.mayAsk);
}

} // namespace quorvane
