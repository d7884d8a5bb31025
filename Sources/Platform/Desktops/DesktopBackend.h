#pragma once

namespace quorvane {

/// The ways to set a picture that exist so far.
enum class DesktopBackend {
    None,
    Gnome,
    Plasma,
    Xfce,
    Mate,
    Cinnamon,
    Lxqt,
    Sway,
    Hyprland,
    LayerShell,
    X11,
    Portal,
    Command,
};

} // namespace quorvane
