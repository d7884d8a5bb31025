#pragma once

#include "Platform/Bus/MessageBus.h"
#include "Platform/Pictures/Screen.h"

#include <optional>

namespace quorvane {

/// The screens as GNOME's compositor has them, on Wayland and on X11; nothing where no such compositor answers.
[[nodiscard]] std::optional<QList<Screen>> mutterScreens(const MessageBus &bus);

} // namespace quorvane
