#include "Manager/Schedule.h"

#include "Platform/System/PowerEvents.h"
#include "Support/TestClock.h"

#include <gtest/gtest.h>

namespace quorvane {

using namespace std::chrono_literals;

class ScheduleTest : public testing::Test
{
  protected:
    ScheduleTest()
    {
        QObject::connect(&schedule, &Schedule::due, &schedule, [this] { ++fired; });
    }

    [[nodiscard]] qint64 secondsLeft() const { return clock.now().secsTo(schedule.nextFireDate()); }

    TestClock clock;
    PowerEvents powerEvents;
    Schedule schedule{&clock, &powerEvents};
    int fired = 0;
};

TEST_F(ScheduleTest, isDueAgainAndAgainWithoutDrift)
{
    schedule.start(5);
    EXPECT_EQ(secondsLeft(), 300);
    clock.pass(15min, 10ms);
    EXPECT_EQ(fired, 2);
    clock.pass(10ms);
    EXPECT_EQ(fired, 3);
    EXPECT_EQ(clock.nextAlarm(), clock.uptime() - 10ms + 5min);
}

TEST_F(ScheduleTest, stoppedItIsNeverDue)
{
    schedule.start(5);
    schedule.stop();
    EXPECT_FALSE(schedule.nextFireDate().isValid());
    clock.pass(1h);
    Q_EMIT powerEvents.woke();
    EXPECT_EQ(fired, 0);
}

TEST_F(ScheduleTest, aSleepOverSeveralMomentsIsCaughtUpWithOnce)
{
    schedule.start(5);
    clock.sleep(1h);
    Q_EMIT powerEvents.woke();
    clock.ring();
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(secondsLeft(), 300);
    // The alarm may notice before the news of the waking does.
    clock.sleep(1h);
    clock.ring();
    Q_EMIT powerEvents.woke();
    EXPECT_EQ(fired, 2);
    EXPECT_EQ(secondsLeft(), 300);
}

TEST_F(ScheduleTest, wakingInTimeChangesNothing)
{
    schedule.start(5);
    clock.sleep(4min);
    Q_EMIT powerEvents.woke();
    EXPECT_EQ(fired, 0);
    EXPECT_EQ(secondsLeft(), 60);
}

TEST_F(ScheduleTest, whoeverIsToldMayStopItOrStartItAnew)
{
    schedule.start(5);
    const auto stop = QObject::connect(&schedule, &Schedule::due, &schedule, [this] { schedule.stop(); });
    clock.pass(5min);
    EXPECT_EQ(clock.nextAlarm(), std::nullopt);
    QObject::disconnect(stop);

    schedule.start(5);
    QObject::connect(&schedule, &Schedule::due, &schedule, [this] { schedule.start(60); });
    clock.pass(5min);
    EXPECT_EQ(secondsLeft(), 3600);
    EXPECT_EQ(clock.nextAlarm(), clock.uptime() + 1h);
}

TEST_F(ScheduleTest, senselessIntervalsBecomeSensible)
{
    EXPECT_EQ(Schedule::sensibleInterval(0), Schedule::kDefaultIntervalMinutes);
    EXPECT_EQ(Schedule::sensibleInterval(-7), Schedule::kDefaultIntervalMinutes);
    EXPECT_EQ(Schedule::sensibleInterval(45), 45);
    EXPECT_EQ(Schedule::sensibleInterval(std::numeric_limits<qint64>::max()), Schedule::kLongestIntervalMinutes);
}

TEST_F(ScheduleTest, withoutAClockNothingIsScheduled)
{
    Schedule idle(nullptr, nullptr);
    idle.start(5);
    EXPECT_FALSE(idle.nextFireDate().isValid());
}

} // namespace quorvane
