#pragma once

#include "Platform/Pictures/Screen.h"

#include <QByteArray>

#include <chrono>

namespace quorvane {

/// Where the session's screens are, for the ways to set a picture that cannot tell which there are.
struct SessionDisplay
{
    QString wayland; ///< What WAYLAND_DISPLAY holds; goes before the other.
    QByteArray x11;  ///< What DISPLAY holds.

    [[nodiscard]] QList<Screen> screens(std::chrono::milliseconds limit) const;
};

/// As the environment says.
[[nodiscard]] SessionDisplay sessionDisplay();

} // namespace quorvane
