#pragma once

#include <QObject>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace quorvane {

class Alarm;
class Clock;

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
    ~Undo() override; ///< Calls nothing any more.

    [[nodiscard]] bool isOffered() const { return !m_steps.empty(); }
    void offer(Step step);
    Q_INVOKABLE void undo(); ///< Takes the newest step back. Nothing happens where there is none any more.

  Q_SIGNALS:
    void isOfferedChanged();

  private:
    struct Offer
    {
        Step step;
        std::chrono::nanoseconds end; ///< By Clock::uptime().
    };

    void settle();

    Clock *m_clock;
    std::unique_ptr<Alarm> m_alarm; ///< Null without a clock.
    std::vector<Offer> m_steps;     ///< The oldest first, which is also the first to end.
};

} // namespace quorvane
