// The repeating timer. Its rhythm is kept on a monotonic clock and counted from each due moment, not from each firing,
// so it does not drift; the date for people is computed from the wall clock beside it. Intervals longer than a timer
// can hold are waited for in pieces.

#include "Manager/SettingsKeys.h"
#include "Manager/WallpaperManager.h"
#include "Platform/UserDefaults.h"

#include <algorithm>

namespace quorvane {

namespace {

// QTimer counts milliseconds in an int, which ends after 24 days.
constexpr std::chrono::milliseconds kLongestWait = std::chrono::hours(24);

} // namespace

void WallpaperManager::setAutoEnabled(bool enabled)
{
    m_autoEnabled = enabled;
    m_services.defaults->set(SettingsKeys::kAutoEnabled, enabled);
    Q_EMIT autoEnabledChanged();
    if (enabled) {
        startTimer();
    } else {
        stopTimer();
    }
}

void WallpaperManager::setIntervalMinutes(qint64 minutes)
{
    m_intervalMinutes = minutes;
    m_services.defaults->set(SettingsKeys::kIntervalMinutes, minutes);
    Q_EMIT intervalMinutesChanged();
    if (m_autoEnabled) {
        startTimer();
    }
}

void WallpaperManager::stopTimer()
{
    m_timer.stop();
    m_nextFireDate = {};
    Q_EMIT nextFireDateChanged();
}

void WallpaperManager::startTimer()
{
    stopTimer();
    if (!m_autoEnabled) {
        return;
    }
    m_timerInterval = std::chrono::minutes(m_intervalMinutes);
    m_timerDue = QDeadlineTimer(m_timerInterval, Qt::PreciseTimer);
    m_nextFireDate = m_services.now().addSecs(m_timerInterval.count());
    Q_EMIT nextFireDateChanged();
    armTimer();
}

void WallpaperManager::armTimer()
{
    const auto remaining = std::chrono::ceil<std::chrono::milliseconds>(m_timerDue.remainingTimeAsDuration());
    m_timer.start(std::min(remaining, kLongestWait));
}

void WallpaperManager::timerFired()
{
    if (!m_timerDue.hasExpired()) {
        armTimer();
        return;
    }
    generateAndSet(Trigger::Timer);
    m_nextFireDate = m_services.now().addSecs(m_timerInterval.count());
    Q_EMIT nextFireDateChanged();
    // After a long sleep several due moments may lie behind; they are one firing, not a burst.
    do {
        m_timerDue += std::chrono::duration_cast<std::chrono::milliseconds>(m_timerInterval).count();
    } while (m_timerDue.hasExpired() && m_timerInterval.count() > 0);
    armTimer();
}

} // namespace quorvane
