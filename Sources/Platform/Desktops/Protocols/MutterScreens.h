#pragma once

#include "Platform/Bus/DesktopBus.h"
#include "Platform/Pictures/Screen.h"

#include <optional>

namespace quorvane {

/// The screens as GNOME's compositor has them, on Wayland and on X11; nothing where no such compositor answers.
[[nodiscard]] std::optional<QList<Screen>> mutterScreens(DesktopBus &bus);

} // namespace quorvane
