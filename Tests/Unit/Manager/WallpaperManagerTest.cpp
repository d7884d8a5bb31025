#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quorvane {

using WallpaperManagerTest = ManagerTest;

TEST_F(WallpaperManagerTest, aFreshInstallationHasItsDefaults)
{
    const WallpaperManager &fresh = start();
    EXPECT_EQ(fresh.prompt(), QString());
    EXPECT_EQ(fresh.providerOverride(), u"auto"_s);
    EXPECT_EQ(fresh.resolvedProvider().id(), u"gemini"_s);
    EXPECT_EQ(fresh.resolvedModelId(), u"gemini-2.5-flash-image"_s);
    EXPECT_EQ(fresh.intervalMinutes(), 30);
    EXPECT_FALSE(fresh.autoEnabled());
    EXPECT_FALSE(fresh.nextFireDate().isValid());
    EXPECT_FALSE(fresh.fourKEnabled());
    EXPECT_FALSE(fresh.nsfwEnabled());
    EXPECT_TRUE(fresh.nsfwApplies());
    EXPECT_TRUE(fresh.providerProducesNative4K());
    EXPECT_EQ(fresh.status(), QString());
    EXPECT_FALSE(fresh.isError());
    EXPECT_FALSE(fresh.isLoading());
    EXPECT_EQ(fresh.upscalingURL(), QString());
    EXPECT_EQ(fresh.currentWallpaperURL(), QString());
    EXPECT_TRUE(fresh.history().isEmpty());
    EXPECT_TRUE(fresh.favorites().isEmpty());
    EXPECT_EQ(fresh.missingKeys(), QStringList{u"Gemini"_s});
    EXPECT_EQ(fresh.providers().size(), 3U);
    // Nothing was written back.
    EXPECT_TRUE(defaults->sync());
    EXPECT_FALSE(QFile::exists(UserDefaults::defaultPath()));
}

TEST_F(WallpaperManagerTest, storedIntervalsBelowOneBecomeThirtyAndOthersStay)
{
    const QList<std::pair<qint64, qint64>> cases{{0, 30}, {-7, 30}, {45, 45}, {1, 1}, {1000000, 1000000}};
    for (const auto &[stored, loaded] : cases) {
        store(SettingsKeys::kIntervalMinutes, stored);
        EXPECT_EQ(start().intervalMinutes(), loaded);
    }
    store(SettingsKeys::kIntervalMinutes, u"soon"_s);
    EXPECT_EQ(start().intervalMinutes(), 30);
    store(SettingsKeys::kIntervalMinutes, std::numeric_limits<qint64>::max());
    EXPECT_EQ(start().intervalMinutes(), Schedule::kLongestIntervalMinutes);
}

TEST_F(WallpaperManagerTest, settingsSurviveARestart)
{
    WallpaperManager &before = start();
    before.setPrompt(u"@a, \"lake\"\n= 水; % \\ "_s);
    before.setFourKEnabled(true);
    before.setNsfwEnabled(true);
    before.setProviderOverride(u"grok"_s);
    before.setIntervalMinutes(45);
    WallpaperManager &after = start();
    EXPECT_EQ(after.prompt(), u"@a, \"lake\"\n= 水; % \\ "_s);
    EXPECT_TRUE(after.fourKEnabled());
    EXPECT_TRUE(after.nsfwEnabled());
    EXPECT_EQ(after.providerOverride(), u"grok"_s);
    EXPECT_EQ(after.intervalMinutes(), 45);
}

TEST_F(WallpaperManagerTest, autoIsKeptByKeepingNothing)
{
    start().setProviderOverride(u"openai"_s);
    EXPECT_EQ(defaults->text(SettingsKeys::kProviderOverride), u"openai"_s);
    manager->setProviderOverride(u"auto"_s);
    EXPECT_FALSE(defaults->contains(SettingsKeys::kProviderOverride));
    EXPECT_EQ(start().providerOverride(), u"auto"_s);
}

TEST_F(WallpaperManagerTest, anEqualAssignmentIsKeptAndAnnouncedToo)
{
    start();
    const QSignalSpy announced(manager.get(), &WallpaperManager::fourKEnabledChanged);
    manager->setFourKEnabled(false);
    EXPECT_EQ(announced.count(), 1);
    EXPECT_TRUE(defaults->contains(SettingsKeys::kFourKEnabled));
}

TEST_F(WallpaperManagerTest, thePromptIsNoPublishedProperty)
{
    start();
    EXPECT_EQ(manager->metaObject()->indexOfProperty("prompt"), -1);
    manager->setPrompt(u"typed"_s);
    EXPECT_EQ(defaults->text(SettingsKeys::kLastPrompt), u"typed"_s);
}

TEST_F(WallpaperManagerTest, theCurrentWallpaperComesBackWhileItsFileIsThere)
{
    const QString path = putImage(u"a.png"_s);
    store(SettingsKeys::kCurrentWallpaperPath, path);
    EXPECT_EQ(start().currentWallpaperURL(), path);
}

TEST_F(WallpaperManagerTest, aDeletedCurrentWallpaperStaysUnsetAndItsPathStored)
{
    store(SettingsKeys::kCurrentWallpaperPath, u"/nowhere/a.png"_s);
    EXPECT_EQ(start().currentWallpaperURL(), QString());
    EXPECT_EQ(defaults->text(SettingsKeys::kCurrentWallpaperPath), u"/nowhere/a.png"_s);
}

TEST_F(WallpaperManagerTest, theCurrentWallpaperFollowsAChangeOfTheSettings)
{
    const QString path = putImage(u"a.png"_s);
    start();
    const QSignalSpy announced(manager.get(), &WallpaperManager::currentWallpaperURLChanged);
    defaults->set(SettingsKeys::kCurrentWallpaperPath, path);
    manager->restoreCurrentWallpaper();
    EXPECT_EQ(manager->currentWallpaperURL(), path);
    EXPECT_EQ(announced.count(), 1);
    defaults->set(SettingsKeys::kCurrentWallpaperPath, u"/nowhere/a.png"_s);
    manager->restoreCurrentWallpaper();
    EXPECT_EQ(manager->currentWallpaperURL(), QString());
    EXPECT_EQ(defaults->text(SettingsKeys::kCurrentWallpaperPath), u"/nowhere/a.png"_s);
    EXPECT_EQ(announced.count(), 2);
}

TEST_F(WallpaperManagerTest, whatAKilledRunLeftHalfWrittenIsRemovedAtTheStart)
{
    const QString leftover = ImageStore::directory() + u"/.a.png.XyZ123.quorvane-tmp"_s;
    QFile file(leftover);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    start();
    manager->waitUntilIdle();
    EXPECT_FALSE(QFile::exists(leftover));
}

TEST_F(WallpaperManagerTest, automaticModeStartsTheScheduleAtLaunchAndGeneratesNothing)
{
    store(SettingsKeys::kAutoEnabled, true);
    store(SettingsKeys::kIntervalMinutes, 1000000);
    const QDateTime before = clock.now();
    start();
    EXPECT_EQ(before.secsTo(manager->nextFireDate()), 1000000LL * 60 + 1);
    EXPECT_FALSE(manager->isLoading());
    manager->setAutoEnabled(false);
    EXPECT_FALSE(manager->nextFireDate().isValid());
    EXPECT_FALSE(defaults->boolean(SettingsKeys::kAutoEnabled));
    manager->setIntervalMinutes(5);
    EXPECT_FALSE(manager->nextFireDate().isValid());
}

} // namespace quorvane
