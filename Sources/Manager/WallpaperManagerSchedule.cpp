// The repeating timer and its catching up after a sleep. The rhythm is kept by the time since the machine started,
// which nobody sets and which counts the time asleep, and each due moment is reckoned from the one before, not from
// when it was noticed, so that it does not drift. The date for people is computed from the wall clock beside it.

#include "Manager/SettingsKeys.h"
#include "Manager/WallpaperManager.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/System/Clock.h"
#include "Platform/System/PowerEvents.h"

#include <algorithm>

namespace quorvane {

namespace {

/// Nothing but a sleep, or being stopped, makes a firing this late.
constexpr std::chrono::seconds kOverslept{30};

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
    if (m_timer) {
        m_timer->cancel();
    }
    m_nextFireDate = {};
    Q_EMIT nextFireDateChanged();
}

void WallpaperManager::startTimer()
{
    stopTimer();
    if (!m_autoEnabled || !m_timer) {
        return;
    }
    m_timerInterval = std::chrono::minutes(std::clamp<qint64>(m_intervalMinutes, 1, kLongestIntervalMinutes));
    scheduleNext(m_services.clock->uptime() + m_timerInterval);
}

void WallpaperManager::scheduleNext(std::chrono::nanoseconds due)
{
    m_timerDue = due;
    m_timer->set(due);
    m_nextFireDate = now().addSecs(m_timerInterval.count());
    Q_EMIT nextFireDateChanged();
}

void WallpaperManager::timerFired()
{
    generateAndSet(Trigger::Timer);
    // After a sleep the countdown begins anew, as handleWake() does it: which of the two learns of it first depends on
    // the machine, and the other then finds nothing overdue. However many moments were missed, this is the one firing.
    if (m_services.clock->uptime() - m_timerDue >= kOverslept) {
        startTimer();
    } else if (m_autoEnabled) { // Whoever watches the generation begin may have turned it off.
        scheduleNext(m_timerDue + m_timerInterval);
    }
}

void WallpaperManager::setupWakeObserver()
{
    if (m_services.powerEvents != nullptr) {
        m_wakeObserver = connect(m_services.powerEvents, &PowerEvents::woke, this, &WallpaperManager::handleWake);
    }
}

void WallpaperManager::handleWake()
{
    if (m_autoEnabled && m_nextFireDate.isValid() && now() >= m_nextFireDate) {
        generateAndSet(Trigger::Timer);
        startTimer();
    }
}

} // namespace quorvane
