#include "Manager/Undo/Undo.h"

#include "Platform/System/Clock.h"

#include <algorithm>
#include <utility>

namespace quorvane {

Undo::Undo(Clock *clock, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_alarm(clock != nullptr ? clock->makeAlarm([this] { settle(); }) : nullptr)
{
}

Undo::~Undo() = default;

void Undo::offer(Step step)
{
    if (m_clock == nullptr) {
        step.settle();
        return;
    }
    m_steps.push_back({std::move(step), m_clock->uptime() + kTime});
    m_alarm->set(m_steps.front().end);
    Q_EMIT isOfferedChanged();
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
    const auto stays =
        std::find_if(m_steps.begin(), m_steps.end(), [now](const Offer &offer) { return offer.end > now; });
    const std::vector<Offer> ended(std::make_move_iterator(m_steps.begin()), std::make_move_iterator(stays));
    m_steps.erase(m_steps.begin(), stays);
    if (!m_steps.empty()) {
        m_alarm->set(m_steps.front().end);
    }
    if (!ended.empty()) {
        Q_EMIT isOfferedChanged();
    }
    for (const Offer &offer : ended) {
        offer.step.settle();
    }
}

} // namespace quorvane
