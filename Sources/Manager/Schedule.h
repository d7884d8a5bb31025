#pragma once

#include "Platform/System/Clock.h"

#include <QDateTime>
#include <QObject>

#include <chrono>
#include <memory>

namespace quorvane {

class PowerEvents;

/// The repeating timer and its catching up after a sleep. Belongs to the main thread.
class Schedule : public QObject
{
    Q_OBJECT

  public:
    /// The interval where none, or a senseless one, is stored.
    static constexpr qint64 kDefaultIntervalMinutes = 30;
    /// A hundred years: beyond it dates stop making sense long before the arithmetic does.
    static constexpr qint64 kLongestIntervalMinutes = 100LL * 366 * 24 * 60;

    /// Both outlive it. Without a clock it never starts; without powerEvents only the clock catches up after a sleep.
    Schedule(Clock *clock, PowerEvents *powerEvents, QObject *parent = nullptr);

    /// What a stored number of minutes counts as.
    [[nodiscard]] static qint64 sensibleInterval(qint64 storedMinutes);

    /// (Re)starts from the present moment: due one interval from now, and then again and again.
    void start(qint64 intervalMinutes);
    void stop();

    /// When it is due next, for people; invalid while it is stopped.
    [[nodiscard]] const QDateTime &nextFireDate() const { return m_nextFireDate; }

  Q_SIGNALS:
    /// A picture is due. Told once, however many moments a sleep swallowed.
    void due();
    void nextFireDateChanged();

  private:
    void setNext(std::chrono::nanoseconds due);
    void ring();
    void wake();

    Clock *m_clock;
    std::unique_ptr<Alarm> m_alarm;    ///< Null without a clock.
    std::chrono::nanoseconds m_due{0}; ///< The next firing, by Clock::uptime().
    std::chrono::minutes m_interval{0};
    QDateTime m_nextFireDate;
};

} // namespace quorvane
