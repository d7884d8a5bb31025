#pragma once

#include "Platform/Pictures/Screen.h"

#include <QDeadlineTimer>

namespace quorvane {

/// What can be known of a compositor without staying its client.
struct WaylandFacts
{
    bool isConnected = false;
    bool hasLayerShell = false; ///< It offers zwlr_layer_shell_v1.
    QList<Screen> screens;
};

/// Asks the compositor that display (as in WAYLAND_DISPLAY) names, on a connection of its own.
[[nodiscard]] WaylandFacts waylandFacts(const QString &display, QDeadlineTimer deadline);

} // namespace quorvane
