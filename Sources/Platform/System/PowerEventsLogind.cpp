#include "Platform/System/PowerEventsLogind.h"

using namespace Qt::StringLiterals;

namespace quorvane {

PowerEventsLogind::PowerEventsLogind(QDBusConnection bus)
{
    bus.connect(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s,
                u"PrepareForSleep"_s, this, SLOT(prepareForSleep(bool)));
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
    const QDBusConnection bus = QDBusConnection::systemBus();
    return bus.isConnected() ? std::make_unique<PowerEventsLogind>(bus) : nullptr;
}

} // namespace quorvane
