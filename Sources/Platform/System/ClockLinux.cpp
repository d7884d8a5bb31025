// An alarm is a timer of the kernel on CLOCK_BOOTTIME, which is CLOCK_MONOTONIC plus the time asleep. QTimer would
// stand still while the machine sleeps, counts milliseconds in an int, which ends after 24 days, and would have to be
// armed again in between; the kernel takes the due moment itself, and the process sleeps until then.

#include "Platform/System/Clock.h"

#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <system_error>
#include <utility>

#include <sys/timerfd.h>
#include <unistd.h>

namespace quorvane {

namespace {

timespec toTimespec(std::chrono::nanoseconds duration)
{
    const auto seconds = std::chrono::floor<std::chrono::seconds>(duration);
    return {.tv_sec = seconds.count(), .tv_nsec = (duration - seconds).count()};
}

/// A file descriptor that is closed with the object.
class TimerDescriptor
{
  public:
    TimerDescriptor()
        : m_descriptor(::timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC))
    {
        if (m_descriptor < 0) {
            throw std::system_error(errno, std::generic_category(), "timerfd_create");
        }
    }
    ~TimerDescriptor() { ::close(m_descriptor); }
    TimerDescriptor(const TimerDescriptor &) = delete;
    TimerDescriptor &operator=(const TimerDescriptor &) = delete;
    TimerDescriptor(TimerDescriptor &&) = delete;
    TimerDescriptor &operator=(TimerDescriptor &&) = delete;

    [[nodiscard]] int get() const { return m_descriptor; }

  private:
    int m_descriptor;
};

class AlarmLinux final : public Alarm
{
  public:
    explicit AlarmLinux(std::function<void()> ring)
        : m_ring(std::move(ring))
        , m_notifier(m_timer.get(), QSocketNotifier::Read)
    {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] {
            // An expiry that was on its way when the alarm was set anew or cancelled cannot be read any more.
            std::uint64_t expirations = 0;
            if (::read(m_timer.get(), &expirations, sizeof expirations) == sizeof expirations) {
                m_ring();
            }
        });
    }

    void set(std::chrono::nanoseconds due) override
    {
        // Zero would mean never.
        arm(std::max(due, std::chrono::nanoseconds(1)));
    }

    void cancel() override { arm(std::chrono::nanoseconds(0)); }

  private:
    void arm(std::chrono::nanoseconds due)
    {
        const itimerspec once{.it_interval = {}, .it_value = toTimespec(due)};
        [[maybe_unused]] const int result = ::timerfd_settime(m_timer.get(), TFD_TIMER_ABSTIME, &once, nullptr);
        Q_ASSERT(result == 0);
    }

    std::function<void()> m_ring;
    TimerDescriptor m_timer;
    QSocketNotifier m_notifier; ///< After m_timer, so that it goes before the descriptor is closed.
};

class ClockLinux final : public Clock
{
  public:
    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTime(); }

    [[nodiscard]] std::chrono::nanoseconds uptime() const override
    {
        timespec time{};
        ::clock_gettime(CLOCK_BOOTTIME, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }

    [[nodiscard]] std::unique_ptr<Alarm> makeAlarm(std::function<void()> ring) override
    {
        return std::make_unique<AlarmLinux>(std::move(ring));
    }
};

} // namespace

std::unique_ptr<Clock> makeSystemClock()
{
    return std::make_unique<ClockLinux>();
}

} // namespace quorvane
