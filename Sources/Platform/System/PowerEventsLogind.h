#pragma once

#include "Platform/System/PowerEvents.h"

#include <QDBusConnection>

namespace quorvane {

/// Listens to systemd-logind, or elogind, which has the same name and signal. Neither needs to run yet, and both may be
/// started again. Nobody else on the bus can wake us.
class PowerEventsLogind final : public PowerEvents
{
    Q_OBJECT

  public:
    explicit PowerEventsLogind(QDBusConnection bus);

  private Q_SLOTS:
    void prepareForSleep(bool isStarting);
};

} // namespace quorvane
