#pragma once

#include "Platform/System/Clock.h"

#include <QElapsedTimer>
#include <QList>

#include <optional>
#include <utility>

namespace quorvane {

/// Time that goes on only when a test says so, or lets the clock on the wall run.
class TestClock final : public Clock
{
  public:
    [[nodiscard]] QDateTime now() const override
    {
        m_wall = m_wall.addSecs(secondsPerLook);
        return m_running.isValid() ? m_wall.addMSecs(m_running.elapsed()) : m_wall;
    }
    [[nodiscard]] std::chrono::nanoseconds uptime() const override { return m_uptime; }
    [[nodiscard]] std::unique_ptr<Alarm> makeAlarm(std::function<void()> ring) override
    {
        return std::make_unique<TestAlarm>(this, std::move(ring));
    }

    /// Both clocks go on and nothing rings, as while the machine sleeps.
    void sleep(std::chrono::milliseconds duration)
    {
        m_uptime += duration;
        m_wall = m_wall.addMSecs(duration.count());
    }

    /// What is due rings, once, however late it is.
    void ring()
    {
        // A ringing alarm may be set again, and then counts as new.
        for (TestAlarm *alarm : QList<TestAlarm *>(m_alarms)) {
            alarm->ringIfDue();
        }
    }

    /// Both clocks go on, and every alarm rings, each as late as told, but in time for what comes next.
    void pass(std::chrono::nanoseconds duration, std::chrono::milliseconds lateness = {})
    {
        const std::chrono::nanoseconds end = m_uptime + duration;
        for (auto next = nextAlarm(); next && *next + lateness <= end; next = nextAlarm()) {
            goTo(*next + lateness);
            ring();
        }
        goTo(end);
    }

    /// Somebody sets the clock on the wall.
    void setWall(const QDateTime &time) { m_wall = time; }

    /// From now on the clock on the wall goes on by itself, as real ones do.
    void letWallRun() { m_running.start(); }

    /// When the earliest alarm rings; nothing while none is set.
    [[nodiscard]] std::optional<std::chrono::nanoseconds> nextAlarm() const
    {
        std::optional<std::chrono::nanoseconds> next;
        for (const TestAlarm *alarm : m_alarms) {
            if (alarm->due() && (!next || *alarm->due() < *next)) {
                next = alarm->due();
            }
        }
        return next;
    }

    int secondsPerLook = 0; ///< By how much each look moves the wall clock, so that no two pictures share a name.

  private:
    class TestAlarm final : public Alarm
    {
      public:
        TestAlarm(TestClock *clock, std::function<void()> ring)
            : m_clock(clock)
            , m_ring(std::move(ring))
        {
            m_clock->m_alarms.append(this);
        }
        ~TestAlarm() override { m_clock->m_alarms.removeOne(this); }

        void set(std::chrono::nanoseconds due) override { m_due = due; }
        void cancel() override { m_due.reset(); }
        [[nodiscard]] const std::optional<std::chrono::nanoseconds> &due() const { return m_due; }

        void ringIfDue()
        {
            if (m_due && *m_due <= m_clock->m_uptime) {
                m_due.reset();
                m_ring();
            }
        }

      private:
        TestClock *m_clock;
        std::function<void()> m_ring;
        std::optional<std::chrono::nanoseconds> m_due;
    };

    void goTo(std::chrono::nanoseconds uptime)
    {
        m_wall = m_wall.addMSecs(std::chrono::round<std::chrono::milliseconds>(uptime - m_uptime).count());
        m_uptime = uptime;
    }

    mutable QDateTime m_wall{QDate(2026, 1, 31), QTime(23, 59, 0)};
    QElapsedTimer m_running; ///< Since the clock on the wall runs; invalid while it stands.
    std::chrono::nanoseconds m_uptime{std::chrono::hours(1)};
    QList<TestAlarm *> m_alarms;
};

} // namespace quorvane
