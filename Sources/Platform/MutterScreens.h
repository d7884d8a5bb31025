#pragma once

#include "Platform/DesktopPicture.h"
#include "Platform/SessionBus.h"

#include <optional>

namespace quorvane {

/// The screens as GNOME's compositor has them, on Wayland and on X11; nothing where no such compositor answers.
[[nodiscard]] std::optional<QList<Screen>> mutterScreens(SessionBus &bus);

} // namespace quorvane
