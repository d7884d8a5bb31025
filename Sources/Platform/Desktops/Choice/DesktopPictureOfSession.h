#pragma once

#include "Platform/Desktops/DesktopPicture.h"

#include <memory>

namespace quorvane {

/// The desktop of this session, chosen by the environment (QUORVANE_DESKTOP, QUORVANE_WALLPAPER_COMMAND, then what
/// runs), at its first use and again whenever it is asked for the screens. Never null: without a desktop the object has
/// no screens.
[[nodiscard]] std::unique_ptr<DesktopPicture> makeDesktopPicture(ProgramLife life = ProgramLife::Application);

} // namespace quorvane
