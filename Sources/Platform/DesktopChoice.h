#pragma once

#include <QString>
#include <QStringList>

namespace quorvane {

/// The ways to set a picture that exist so far.
enum class DesktopWay {
    None,
    Gnome,
    Xfce,
    Mate,
    Cinnamon,
    Lxqt,
    Sway,
    X11,
    Command,
};

/// What QUORVANE_DESKTOP calls the way; empty for none.
[[nodiscard]] QString nameOf(DesktopWay way);

/// What the choice looks at.
struct DesktopFacts
{
    QString wanted;              ///< QUORVANE_DESKTOP
    QString command;             ///< QUORVANE_WALLPAPER_COMMAND
    bool hasSwaySocket = false;  ///< SWAYSOCK is set.
    bool swayAnswers = false;    ///< Somebody listens on it.
    bool hasWayland = false;     ///< WAYLAND_DISPLAY is set.
    bool hasX11 = false;         ///< DISPLAY is set.
    QStringList currentDesktops; ///< The entries of XDG_CURRENT_DESKTOP.
    QStringList busNames;        ///< Who is on the session bus.
    QStringList schemas;         ///< Which of the known desktops' settings are installed.
};

/// What was chosen, and why in one line for the user.
struct DesktopChoice
{
    DesktopWay way = DesktopWay::None;
    QString reason;
};

/// QUORVANE_DESKTOP is obeyed or refused, never replaced by something else; then QUORVANE_WALLPAPER_COMMAND; then what
/// runs here: a desktop that XDG_CURRENT_DESKTOP names and that is there, then whatever else answers, and then a
/// desktop that is named only, because it may still be starting. One that is known to paint over what we could set is
/// no bare X11.
[[nodiscard]] DesktopChoice chooseDesktop(const DesktopFacts &facts);

} // namespace quorvane
