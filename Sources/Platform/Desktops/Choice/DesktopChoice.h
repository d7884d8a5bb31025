#pragma once

#include "Platform/Desktops/DesktopBackend.h"

#include <QString>
#include <QStringList>

namespace quorvane {

/// What QUORVANE_DESKTOP calls the way; empty for none.
[[nodiscard]] QString nameOf(DesktopBackend way);

/// What the choice looks at.
struct DesktopFacts
{
    QString wanted;               ///< QUORVANE_DESKTOP
    QString command;              ///< QUORVANE_WALLPAPER_COMMAND
    bool isSandboxed = false;     ///< The program is shut off from the desktop, in a Flatpak for example.
    bool hasHyprland = false;     ///< HYPRLAND_INSTANCE_SIGNATURE is set.
    bool hyprlandAnswers = false; ///< Hyprland listens on its socket.
    bool hasLayerShell = false;   ///< The compositor of WAYLAND_DISPLAY offers zwlr_layer_shell_v1.
    bool portalAnswers = false;   ///< The session's portal sets wallpapers.
    bool hasSwaySocket = false;   ///< SWAYSOCK is set.
    bool swayAnswers = false;     ///< Somebody listens on it.
    bool hasWayland = false;      ///< WAYLAND_DISPLAY is set.
    bool hasX11 = false;          ///< DISPLAY is set.
    QStringList currentDesktops;  ///< The entries of XDG_CURRENT_DESKTOP.
    QStringList busNames;         ///< Who is on the session bus.
    QStringList schemas;          ///< Which of the known desktops' settings are installed.
};

/// What was chosen, and why in one line for the user.
struct DesktopChoice
{
    DesktopBackend way = DesktopBackend::None;
    QString reason;
};

/// QUORVANE_DESKTOP is obeyed or refused, never replaced by something else; then QUORVANE_WALLPAPER_COMMAND; then what
/// runs here: a desktop that XDG_CURRENT_DESKTOP names and that is there, then whatever else answers, and then a
/// desktop that is named only, because it may still be starting. One that is known to paint over what we could set is
/// no bare X11.
[[nodiscard]] DesktopChoice chooseDesktop(const DesktopFacts &facts);

} // namespace quorvane
