#pragma once

#include "Platform/Bus/MessageBus.h"
#include "Platform/System/PowerEvents.h"

namespace quorvane {

/// Listens to systemd-logind, or elogind, which has the same name and signal. Neither needs to run yet, and both may be
/// started again. Nobody else on the bus can wake us.
class PowerEventsLogind final : public PowerEvents
{
    Q_OBJECT

  public:
    /// bus is the machine's.
    explicit PowerEventsLogind(MessageBus bus);

  private Q_SLOTS:
    void prepareForSleep(bool isStarting);

  private:
    MessageBus m_bus;
};

} // namespace quorvane
