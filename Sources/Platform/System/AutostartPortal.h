#pragma once

#include "Platform/Bus/MessageBus.h"
#include "Platform/System/Autostart.h"

#include <chrono>

namespace quorvane {

/// Asks the desktop through its Background portal, as a sandboxed program does, and waits for the answer in an event
/// loop of its own.
[[nodiscard]] Result<> askPortalForAutostart(const MessageBus &bus, Autostart autostart,
                                             std::chrono::milliseconds limit = std::chrono::minutes(2));

} // namespace quorvane
