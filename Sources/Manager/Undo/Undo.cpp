#include "Manager/Undo/Undo.h"

#include <algorithm>
#include <utility>

namespace quorvane {

Undo::Undo(Clock *clock, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_alarm(clock != nullptr ? clock->makeAlarm([this] { settle(); }) : nullptr)
{
}

void Undo::offer(Step step)
{
    if (m_clock == nullptr) {
        step.settle();
        return;
    }
    m_steps.push_back({std::move(step), m_clock->uptime() + kTime});
    setAlarm();
    Q_EMIT isOfferedChanged();
}

void Undo::offerAgain(Step step)
{
    m_steps.insert(m_steps.begin(), {std::move(step), std::chrono::nanoseconds::max()});
    Q_EMIT isOfferedChanged();
}

/// For the first that ends.
void Undo::setAlarm()
{
    const auto endsBefore = [](const Offer &one, const Offer &other) { return one.end < other.end; };
    const auto first = std::min_element(m_steps.begin(), m_steps.end(), endsBefore);
    if (first != m_steps.end() && first->end != std::chrono::nanoseconds::max()) {
        m_alarm->set(first->end);
    }
}

void Undo::undo()
{
    if (m_steps.empty()) {
        return;
    }
    const Offer newest = std::move(m_steps.back());
    m_steps.pop_back();
    Q_EMIT isOfferedChanged();
    newest.step.undo();
}

/// What nobody took back in time stays.
void Undo::settle()
{
    const std::chrono::nanoseconds now = m_clock->uptime();
    const auto ends =
        std::stable_partition(m_steps.begin(), m_steps.end(), [now](const Offer &offer) { return offer.end > now; });
    const std::vector<Offer> ended(std::make_move_iterator(ends), std::make_move_iterator(m_steps.end()));
    m_steps.erase(ends, m_steps.end());
    setAlarm();
    if (!ended.empty()) {
        Q_EMIT isOfferedChanged();
    }
    for (const Offer &offer : ended) {
        offer.step.settle();
    }
}

} // namespace quorvane
