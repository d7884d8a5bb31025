#include "Unit/Manager/WallpaperManagerScheduleFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(WallpaperManagerScheduleTest, turningAutomaticModeOnWaitsOneIntervalAndOffForgetsIt)
{
    start();
    EXPECT_EQ(clock.nextAlarm(), std::nullopt);
    manager->setAutoEnabled(true);
    EXPECT_EQ(manager->nextFireDate(), kStart.addSecs(30 * 60));
    clock.pass(30min - 1ms);
    EXPECT_EQ(generations(), 0);
    clock.pass(1ms);
    EXPECT_EQ(generations(), 1);
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_EQ(secondsLeft(), 30 * 60);

    manager->setAutoEnabled(false);
    EXPECT_FALSE(manager->nextFireDate().isValid());
    EXPECT_EQ(clock.nextAlarm(), std::nullopt);
    clock.pass(24h);
    EXPECT_EQ(generations(), 1);
}

TEST_F(WallpaperManagerScheduleTest, changingTheIntervalBeginsTheCountdownAnew)
{
    startEvery(60);
    clock.pass(59min);
    manager->setIntervalMinutes(5);
    EXPECT_EQ(secondsLeft(), 5 * 60);
    clock.pass(5min - 1ms);
    EXPECT_EQ(generations(), 0);
    clock.pass(1ms);
    EXPECT_EQ(generations(), 1);
}

TEST_F(WallpaperManagerScheduleTest, changingTheIntervalWhileItIsOffOnlyStoresIt)
{
    start().setIntervalMinutes(5);
    EXPECT_EQ(defaults->integer(SettingsKeys::kIntervalMinutes), 5);
    EXPECT_FALSE(manager->nextFireDate().isValid());
    EXPECT_EQ(clock.nextAlarm(), std::nullopt);
}

TEST_F(WallpaperManagerScheduleTest, aSenselessIntervalIsAMinute)
{
    startEvery(60);
    for (const qint64 minutes : {0, -5}) {
        manager->setIntervalMinutes(minutes);
        EXPECT_EQ(secondsLeft(), 60);
    }
}

TEST_F(WallpaperManagerScheduleTest, longIntervalsAreWaitedForWithOneAlarm)
{
    for (const qint64 minutes : {qint64(35792), qint64(1000000), Schedule::kLongestIntervalMinutes}) {
        startEvery(minutes); // 35792 minutes are more milliseconds than an int holds.
        EXPECT_EQ(secondsLeft(), minutes * 60);
        EXPECT_EQ(clock.nextAlarm(), clock.uptime() + std::chrono::minutes(minutes));
        const int before = generations();
        clock.pass(std::chrono::minutes(minutes) - 1ms);
        EXPECT_EQ(generations(), before);
        clock.pass(1ms);
        EXPECT_EQ(generations(), before + 1);
    }
    manager->setIntervalMinutes(std::numeric_limits<qint64>::max());
    EXPECT_EQ(secondsLeft(), Schedule::kLongestIntervalMinutes * 60);
}

TEST_F(WallpaperManagerScheduleTest, lateFiringsDoNotShiftTheRhythm)
{
    EXPECT_TRUE(Keychain::remove(u"gemini"_s)); // Each generation ends at once.
    startEvery(5);
    const auto begin = clock.uptime();
    clock.pass(1000 * 5min + 1s, 70ms);
    EXPECT_EQ(clock.nextAlarm(), begin + 1001 * 5min);
}

TEST_F(WallpaperManagerScheduleTest, aGenerationThatStillRunsDoesNotSkipTheNext)
{
    startEvery(5);
    clock.pass(10min);
    EXPECT_TRUE(manager->isLoading());
    EXPECT_EQ(generations(), 2);
}

TEST_F(WallpaperManagerScheduleTest, aFailedGenerationDoesNotEndTheSchedule)
{
    EXPECT_TRUE(Keychain::remove(u"gemini"_s));
    startEvery(5);
    clock.pass(5min);
    EXPECT_EQ(generations(), 0);
    EXPECT_TRUE(manager->isError());
    EXPECT_TRUE(Keychain::save(u"K"_s, u"gemini"_s));
    clock.pass(5min);
    EXPECT_EQ(generations(), 1);
    EXPECT_FALSE(manager->isError());
}

TEST_F(WallpaperManagerScheduleTest, automaticModeTurnedOffByWhoeverSeesAFiringStaysOff)
{
    startEvery(5);
    QObject::connect(manager.get(), &WallpaperManager::isLoadingChanged, manager.get(),
                     [this] { manager->setAutoEnabled(false); });
    clock.pass(5min);
    EXPECT_EQ(generations(), 1);
    EXPECT_FALSE(manager->nextFireDate().isValid());
    EXPECT_EQ(clock.nextAlarm(), std::nullopt);
}

TEST_F(WallpaperManagerScheduleTest, nothingFiresOnceTheManagerGoes)
{
    startEvery(5);
    clock.pass(5min);
    clock.sleep(5min);
    // While the manager waits for the end of what runs, everything that could start something happens.
    bool hasHappened = false;
    QMetaObject::invokeMethod(
        &powerEvents,
        [&] {
            hasHappened = true;
            clock.ring();
            Q_EMIT powerEvents.woke();
            Q_EMIT screens.changed();
        },
        Qt::QueuedConnection);
    manager.reset();
    EXPECT_TRUE(hasHappened);
    EXPECT_EQ(statuses.count(QString()), 1) << "each generation begins with an empty status";
    EXPECT_EQ(clock.nextAlarm(), std::nullopt);
}

TEST_F(WallpaperManagerScheduleTest, aManagerWithoutAClockSchedulesNothing)
{
    store(SettingsKeys::kAutoEnabled, true);
    HttpClient client;
    UserDefaults settings;
    WallpaperManager single({&settings, &client, &desktop, &secrets, localUpscale});
    EXPECT_TRUE(single.autoEnabled());
    EXPECT_FALSE(single.nextFireDate().isValid());
    single.setIntervalMinutes(5);
    EXPECT_FALSE(single.nextFireDate().isValid());
}

} // namespace quorvane
