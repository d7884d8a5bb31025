#include "Platform/System/Clock.h"

#include "Support/WaitFor.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using namespace std::chrono_literals;

class ClockTest : public testing::Test
{
  protected:
    /// Runs the event loop for a moment in which whatever is due rings: until an alarm set after it has rung.
    void letRing()
    {
        bool isOver = false;
        const auto end = clock->makeAlarm([&isOver] { isOver = true; });
        end->set(clock->uptime() + 1ms);
        ASSERT_TRUE(waitFor([&isOver] { return isOver; }));
    }

    std::unique_ptr<Clock> clock = makeSystemClock();
    int rings = 0;
    std::unique_ptr<Alarm> alarm = clock->makeAlarm([this] { ++rings; });
};

} // namespace

TEST_F(ClockTest, uptimeIsWhatTheSystemSays)
{
    QFile file(u"/proc/uptime"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::chrono::nanoseconds before = clock->uptime();
    const double told = file.readAll().split(' ').first().toDouble();
    // The file is cut off at hundredths, and a container may shift it.
    EXPECT_NEAR(told, std::chrono::duration<double>(before).count(), 1.0);
    EXPECT_LE(before, clock->uptime());
}

TEST_F(ClockTest, anAlarmRingsOnceAndNotTooEarly)
{
    const auto due = clock->uptime() + 30ms;
    std::chrono::nanoseconds rang{0};
    const auto timed = clock->makeAlarm([&] {
        ++rings;
        rang = clock->uptime();
    });
    timed->set(due);
    ASSERT_TRUE(waitFor([this] { return rings > 0; }));
    EXPECT_GE(rang, due);
    letRing();
    EXPECT_EQ(rings, 1);
}

TEST_F(ClockTest, anAlarmForThePastRingsSoonButNotAtOnce)
{
    for (const std::chrono::nanoseconds due : {clock->uptime() - 1h, 0ns, std::chrono::nanoseconds(-1h)}) {
        rings = 0;
        alarm->set(due);
        EXPECT_EQ(rings, 0);
        EXPECT_TRUE(waitFor([this] { return rings > 0; }));
    }
}

TEST_F(ClockTest, settingAnAlarmAgainTakesBackAnExpiryThatNobodySawYet)
{
    alarm->set(clock->uptime());
    alarm->set(clock->uptime() + 1h);
    letRing();
    EXPECT_EQ(rings, 0);
    alarm->set(clock->uptime());
    alarm->cancel();
    letRing();
    EXPECT_EQ(rings, 0);
}

TEST_F(ClockTest, aHundredYearsAreNotTooLong)
{
    alarm->set(clock->uptime() + 100 * 366 * 24h);
    letRing();
    EXPECT_EQ(rings, 0);
}

TEST_F(ClockTest, anAlarmMaySetItselfWhileItRings)
{
    std::unique_ptr<Alarm> again;
    again = clock->makeAlarm([&] {
        if (++rings < 3) {
            again->set(clock->uptime() + 1ms);
        }
    });
    again->set(clock->uptime());
    EXPECT_TRUE(waitFor([this] { return rings == 3; }));
}

} // namespace quorvane
