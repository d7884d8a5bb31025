#pragma once

#include "Platform/System/Clock.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace quorvane {

/// What was done last and can be taken back for a while, the newest first. Belongs to the main thread.
class Undo : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isOffered READ isOffered NOTIFY isOfferedChanged)

  public:
    /// How long a step can be taken back.
    static constexpr std::chrono::seconds kTime{10};

    /// What can be taken back. At most one of the two is called, once; then both go.
    struct Step
    {
        std::function<void()> undo;   ///< Takes it back.
        std::function<void()> settle; ///< It stays.
    };

    /// The clock outlives it; without one nothing is offered, and every step stays.
    explicit Undo(Clock *clock, QObject *parent = nullptr);

    [[nodiscard]] bool isOffered() const { return !m_steps.empty(); }
    void offer(Step step);
    /// Offers what could not be taken back once more: after all others, so that it is in nobody's way, and for as long
    /// as the program runs, because it is wanted.
    void offerAgain(Step step);
    Q_INVOKABLE void undo(); ///< Takes the newest step back. Nothing happens where there is none any more.

  Q_SIGNALS:
    void isOfferedChanged();

  private:
    struct Offer
    {
        Step step;
        std::chrono::nanoseconds end; ///< By Clock::uptime().
    };

    void setAlarm();
    void settle();

    Clock *m_clock;
    std::unique_ptr<Alarm> m_alarm; ///< Null without a clock.
    std::vector<Offer> m_steps;     ///< What is taken back last is the first.
};

} // namespace quorvane
