#pragma once

#include <QDateTime>

#include <chrono>
#include <functional>
#include <memory>

namespace quorvane {

/// One wake-up at a time. Belongs to the thread that made it, which has an event loop. It may not be destroyed while it
/// rings.
class Alarm
{
  public:
    Alarm() = default;
    Alarm(const Alarm &) = delete;
    Alarm &operator=(const Alarm &) = delete;
    Alarm(Alarm &&) = delete;
    Alarm &operator=(Alarm &&) = delete;
    virtual ~Alarm() = default;

    /// Rings once, from the event loop, when the clock's uptime reaches due; soon when that is past already. However
    /// far away that is, nothing happens before. Takes the place of what was set before.
    virtual void set(std::chrono::nanoseconds due) = 0;
    virtual void cancel() = 0;
};

/// The seam to time. It is told twice: by the clock on the wall, which people and time servers set, and by the time
/// since the machine started, which nobody sets.
class Clock
{
  public:
    Clock() = default;
    Clock(const Clock &) = delete;
    Clock &operator=(const Clock &) = delete;
    Clock(Clock &&) = delete;
    Clock &operator=(Clock &&) = delete;
    virtual ~Clock() = default;

    /// The wall clock, in local time.
    [[nodiscard]] virtual QDateTime now() const = 0;

    /// Since the machine started. Goes on while the machine sleeps, so that an hour is an hour for people.
    [[nodiscard]] virtual std::chrono::nanoseconds uptime() const = 0;

    /// Not set yet; the clock outlives it.
    [[nodiscard]] virtual std::unique_ptr<Alarm> makeAlarm(std::function<void()> ring) = 0;
};

/// The clock of this machine. An alarm that comes due while the machine sleeps does not wake it, and rings when it
/// wakes.
[[nodiscard]] std::unique_ptr<Clock> makeSystemClock();

} // namespace quorvane
