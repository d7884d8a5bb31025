// The rhythm is kept by the time since the machine started, which nobody sets and which counts the time asleep, and
// each due moment is reckoned from the one before, not from when it was noticed, so that it does not drift. The date
// for people is computed from the wall clock beside it.

#include "Manager/Schedule.h"

#include "Platform/System/PowerEvents.h"

#include <algorithm>

namespace quorvane {

namespace {

/// Nothing but a sleep, or being stopped, makes a firing this late.
constexpr std::chrono::seconds kOverslept{30};

} // namespace

Schedule::Schedule(Clock *clock, PowerEvents *powerEvents, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
{
    if (clock != nullptr) {
        m_alarm = clock->makeAlarm([this] { ring(); });
    }
    if (powerEvents != nullptr) {
        connect(powerEvents, &PowerEvents::woke, this, &Schedule::wake);
    }
}

qint64 Schedule::sensibleInterval(qint64 storedMinutes)
{
    return storedMinutes < 1 ? kDefaultIntervalMinutes : std::min(storedMinutes, kLongestIntervalMinutes);
}

void Schedule::start(qint64 intervalMinutes)
{
    stop();
    if (m_alarm) {
        m_interval = std::chrono::minutes(std::clamp<qint64>(intervalMinutes, 1, kLongestIntervalMinutes));
        setNext(m_clock->uptime() + m_interval);
    }
}

void Schedule::stop()
{
    if (m_alarm) {
        m_alarm->cancel();
    }
    m_nextFireDate = {};
    Q_EMIT nextFireDateChanged();
}

void Schedule::setNext(std::chrono::nanoseconds due)
{
    m_due = due;
    m_alarm->set(due);
    m_nextFireDate = m_clock->now().addSecs(std::chrono::seconds(m_interval).count());
    Q_EMIT nextFireDateChanged();
}

void Schedule::ring()
{
    const QDateTime told = m_nextFireDate;
    Q_EMIT due();
    if (m_nextFireDate != told) {
        return; // Whoever watched the generation begin has stopped it, or started it anew.
    }
    // After a sleep the countdown begins anew, as wake() does it: which of the two learns of it first depends on the
    // machine, and the other then finds nothing overdue. However many moments were missed, this is the one firing.
    if (m_clock->uptime() - m_due >= kOverslept) {
        start(m_interval.count());
    } else {
        setNext(m_due + m_interval);
    }
}

void Schedule::wake()
{
    if (m_nextFireDate.isValid() && m_clock->now() >= m_nextFireDate) {
        const QDateTime told = m_nextFireDate;
        Q_EMIT due();
        if (m_nextFireDate == told) {
            start(m_interval.count());
        }
    }
}

} // namespace quorvane
