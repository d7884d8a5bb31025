#include "Unit/Manager/WallpaperManagerScheduleFixture.h"

namespace quorvane {

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

} // namespace quorvane
