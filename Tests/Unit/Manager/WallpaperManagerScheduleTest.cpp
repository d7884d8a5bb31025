#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using namespace std::chrono_literals;

const QDateTime kStart(QDate(2026, 1, 31), QTime(23, 59, 0));

class WallpaperManagerScheduleTest : public ManagerTest
{
  protected:
    WallpaperManagerScheduleTest()
    {
        clock.secondsPerLook = 0;
        EXPECT_TRUE(Keychain::save(u"K"_s, u"gemini"_s));
    }

    /// Automatic mode with the interval, from now on.
    void startEvery(qint64 minutes)
    {
        store(SettingsKeys::kIntervalMinutes, minutes);
        store(SettingsKeys::kAutoEnabled, true);
        start();
    }

    /// How many generations were asked for so far.
    int generations()
    {
        manager->waitUntilIdle();
        return static_cast<int>(service.requests().size());
    }

    [[nodiscard]] qint64 secondsLeft() { return clock.now().secsTo(manager->nextFireDate()); }
};

} // namespace

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
    for (const qint64 minutes : {qint64(35792), qint64(1000000), WallpaperManager::kLongestIntervalMinutes}) {
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
    EXPECT_EQ(secondsLeft(), WallpaperManager::kLongestIntervalMinutes * 60);
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

TEST_F(WallpaperManagerScheduleTest, wakingBeforeTheDueTimeDoesNothingAndTheTimerFiresInTime)
{
    startEvery(60);
    clock.sleep(59min);
    Q_EMIT powerEvents.woke();
    EXPECT_EQ(generations(), 0);
    EXPECT_EQ(secondsLeft(), 60);
    clock.pass(1min - 1ms);
    EXPECT_EQ(generations(), 0);
    clock.pass(1ms);
    EXPECT_EQ(generations(), 1);
}

TEST_F(WallpaperManagerScheduleTest, wakingExactlyAtTheDueTimeGenerates)
{
    startEvery(60);
    clock.sleep(60min);
    Q_EMIT powerEvents.woke();
    EXPECT_EQ(generations(), 1);
    EXPECT_EQ(secondsLeft(), 60 * 60);
}

TEST_F(WallpaperManagerScheduleTest, aLongSleepIsOneGenerationWhicheverLearnsOfItFirst)
{
    const std::function<void()> wake = [this] { Q_EMIT powerEvents.woke(); };
    const std::function<void()> ring = [this] { clock.ring(); };
    const QList<QList<std::function<void()>>> orders{{wake, ring}, {ring, wake}, {ring}, {wake, wake, ring}};
    for (const auto &order : orders) {
        startEvery(60);
        const int before = generations();
        clock.pass(20min);
        clock.sleep(10 * 60min + 7min);
        for (const auto &notice : order) {
            notice();
        }
        EXPECT_EQ(generations(), before + 1);
        EXPECT_EQ(secondsLeft(), 60 * 60);
        clock.pass(60min - 1ms);
        EXPECT_EQ(generations(), before + 1);
        clock.pass(1ms);
        EXPECT_EQ(generations(), before + 2);
    }
}

TEST_F(WallpaperManagerScheduleTest, wakingWhileAutomaticModeIsOffDoesNothing)
{
    start();
    clock.sleep(24h);
    Q_EMIT powerEvents.woke();
    EXPECT_EQ(generations(), 0);
    EXPECT_FALSE(manager->nextFireDate().isValid());
}

TEST_F(WallpaperManagerScheduleTest, settingTheClockMovesNoFiring)
{
    for (const qint64 days : {400, -400}) {
        clock.setWall(kStart);
        startEvery(60);
        const int before = generations();
        clock.pass(20min);
        clock.setWall(clock.now().addDays(days));
        clock.pass(40min - 1ms);
        EXPECT_EQ(generations(), before);
        clock.pass(1ms);
        EXPECT_EQ(generations(), before + 1);
        EXPECT_EQ(secondsLeft(), 60 * 60) << "reckoned from the clock as it is now";
    }
}

TEST_F(WallpaperManagerScheduleTest, wakingWithAClockSetForwardGeneratesAndBeginsAnew)
{
    startEvery(60);
    clock.pass(20min);
    clock.setWall(clock.now().addSecs(3600));
    Q_EMIT powerEvents.woke();
    EXPECT_EQ(generations(), 1);
    EXPECT_EQ(clock.nextAlarm(), clock.uptime() + 60min);
}

TEST_F(WallpaperManagerScheduleTest, wakingWithAClockSetBackLeavesItToTheTimer)
{
    startEvery(60);
    clock.sleep(3h);
    clock.setWall(kStart);
    Q_EMIT powerEvents.woke();
    EXPECT_EQ(generations(), 0);
    clock.ring();
    EXPECT_EQ(generations(), 1);
    EXPECT_EQ(secondsLeft(), 60 * 60);
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
