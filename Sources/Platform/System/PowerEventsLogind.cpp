#include "Platform/System/PowerEventsLogind.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

PowerEventsLogind::PowerEventsLogind(MessageBus bus)
    : m_bus(std::move(bus))
{
    m_bus.connection().connect(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                               u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, this,
                               SLOT(prepareForSleep(bool)));
}

void PowerEventsLogind::prepareForSleep(bool isStarting)
{
    // Sent twice: true before the machine sleeps, false when it is awake again.
    if (!isStarting) {
        Q_EMIT woke();
    }
}

std::unique_ptr<PowerEvents> makePowerEvents()
{
    const MessageBus bus(MessageBus::systemAddress());
    return bus.isConnected() ? std::make_unique<PowerEventsLogind>(bus) : nullptr;
}

} // namespace quorvane
