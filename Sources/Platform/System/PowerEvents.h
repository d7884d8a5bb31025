#pragma once

#include <QObject>

#include <memory>

namespace quorvane {

/// The seam to the machine's sleep. Belongs to the main thread and signals from its event loop.
class PowerEvents : public QObject
{
    Q_OBJECT

  Q_SIGNALS:
    /// The machine woke. Screens and network may still be on their way.
    void woke();
};

/// What this machine tells; null where nothing tells, for example without a system bus.
[[nodiscard]] std::unique_ptr<PowerEvents> makePowerEvents();

} // namespace quorvane
