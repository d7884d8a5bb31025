#include "Platform/Desktops/Choice/DesktopChoice.h"

#include "Platform/Desktops/SessionDesktops.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Case
{
    const char *what;
    DesktopFacts facts;
    DesktopBackend way;
    const char *reason; ///< Occurs in the reason.
};

DesktopFacts facts(const char *wanted, const char *command = "")
{
    DesktopFacts result;
    result.wanted = QString::fromUtf8(wanted);
    result.command = QString::fromUtf8(command);
    return result;
}

DesktopFacts withSway(DesktopFacts base = {})
{
    base.hasSwaySocket = true;
    base.swayAnswers = true;
    base.hasWayland = true;
    return base;
}

DesktopFacts withX11(DesktopFacts base = {}, const QStringList &currentDesktops = {})
{
    base.hasX11 = true;
    base.currentDesktops = currentDesktops;
    return base;
}

DesktopFacts withDeafSway(DesktopFacts base = {})
{
    base.hasSwaySocket = true;
    return base;
}

DesktopFacts withWayland(DesktopFacts base = {})
{
    base.hasWayland = true;
    return base;
}

QStringList list(const char *entries)
{
    return QString::fromUtf8(entries).split(':'_L1);
}

DesktopFacts withLayerShell(DesktopFacts base = {})
{
    base.hasWayland = true;
    base.hasLayerShell = true;
    return base;
}

DesktopFacts withHyprland(DesktopFacts base, bool answers = true)
{
    base.hasHyprland = true;
    base.hyprlandAnswers = answers;
    return base;
}

DesktopFacts withPortal(DesktopFacts base)
{
    base.portalAnswers = true;
    return base;
}

DesktopFacts inSandbox(DesktopFacts base)
{
    base.isSandboxed = true;
    return base;
}

/// All settings are installed, XDG_CURRENT_DESKTOP is entries, and painter is on the session bus.
DesktopFacts withDesktop(const char *entries, const char *painter, DesktopFacts base = {})
{
    base = withX11(base, list(entries));
    base.busNames.append(QString::fromUtf8(painter));
    for (const SessionDesktop &desktop : sessionDesktops()) {
        base.schemas.append(desktop.settings.schema);
    }
    return base;
}

} // namespace

TEST(DesktopChoice, isMadeAsTheTableSays)
{
    const Case cases[] = {
        {"nothing at all", {}, DesktopBackend::None, "neither SWAYSOCK nor DISPLAY"},
        {"sway", withSway(), DesktopBackend::Sway, "sway answers"},
        {"sway with Xwayland", withSway(withX11()), DesktopBackend::Sway, "sway answers"},
        {"a socket left from yesterday", withDeafSway(), DesktopBackend::None, "nobody answers"},
        {"the same under X11", withDeafSway(withX11()), DesktopBackend::X11, "DISPLAY is set"},
        {"another Wayland desktop", withWayland(withX11()), DesktopBackend::None, "this Wayland desktop"},
        {"plain X11", withX11(), DesktopBackend::X11, "DISPLAY is set"},
        {"i3", withX11({}, list("i3")), DesktopBackend::X11, "DISPLAY is set"},
        {"LXDE", withX11({}, list("LXDE")), DesktopBackend::None, "\"LXDE\""},
        {"Ubuntu", withDesktop("ubuntu:GNOME", "org.gnome.Shell"), DesktopBackend::Gnome, "\"ubuntu\", and it draws"},
        {"Unity", withDesktop("Unity:Unity7", "com.canonical.Unity"), DesktopBackend::Gnome, "\"Unity\", and it draws"},
        {"Budgie", withDesktop("Budgie:GNOME", "org.budgie_desktop.BudgieWM"), DesktopBackend::Gnome,
         "\"Budgie\", and"},
        {"Cinnamon", withDesktop("X-Cinnamon", "org.Cinnamon"), DesktopBackend::Cinnamon,
         "\"X-Cinnamon\", and it draws"},
        {"MATE with icons", withDesktop("MATE", "org.mate.Caja"), DesktopBackend::Mate, "and it draws"},
        {"MATE without", withDesktop("MATE", "org.mate.SettingsDaemon"), DesktopBackend::Mate, "and it draws"},
        {"XFCE in small letters", withDesktop("xfce", "org.xfce.xfdesktop"), DesktopBackend::Xfce,
         "\"xfce\", and it draws"},
        {"LXQt", withDesktop("LXQt", "org.pcmanfm.PCManFM"), DesktopBackend::Lxqt, "and it draws"},
        {"LXQt on Wayland", withWayland(withDesktop("LXQt", "org.pcmanfm.PCManFM")), DesktopBackend::None,
         "this Wayland"},
        {"GNOME on Wayland", withWayland(withDesktop("GNOME", "org.gnome.Shell")), DesktopBackend::Gnome,
         "and it draws"},
        {"a desktop that is still starting", withDesktop("XFCE", ""), DesktopBackend::Xfce,
         "but org.xfce.xfdesktop is not on the session bus"},
        {"another desktop's program", withDesktop("MATE", "org.gnome.Shell"), DesktopBackend::Mate,
         "but org.mate.Caja or org.mate.SettingsDaemon is not on the session bus"},
        {"a desktop without its settings", withX11({}, list("MATE")), DesktopBackend::Mate,
         "but its settings \"org.mate.background\" are not installed"},
        {"sway that is called GNOME", withSway(withDesktop("GNOME", "")), DesktopBackend::Sway, "sway answers"},
        {"sway that is called sway", withSway(withX11({}, list("sway"))), DesktopBackend::Sway, "sway answers"},
        {"a command in GNOME", withDesktop("GNOME", "org.gnome.Shell", facts("", "/bin/set")), DesktopBackend::Command,
         "QUORVANE_WALLPAPER_COMMAND"},
        {"a command", facts("", "/bin/set"), DesktopBackend::Command, "QUORVANE_WALLPAPER_COMMAND is set"},
        {"a command in sway", withSway(facts("", "/bin/set")), DesktopBackend::Command, "QUORVANE_WALLPAPER_COMMAND"},
        {"the command by name", facts("command", "/bin/set"), DesktopBackend::Command,
         "QUORVANE_DESKTOP is \"command\""},
        {"the command by name only", withSway(facts("command")), DesktopBackend::None, "COMMAND is not set"},
        {"sway by name", withSway(facts("sway")), DesktopBackend::Sway, "QUORVANE_DESKTOP is \"sway\""},
        {"sway by name, without it", withX11(facts("sway")), DesktopBackend::Sway, "SWAYSOCK is not set"},
        {"X11 by name in sway", withSway(withX11(facts("x11"))), DesktopBackend::X11, "QUORVANE_DESKTOP is \"x11\""},
        {"X11 by name in GNOME", withX11(facts("x11"), list("GNOME")), DesktopBackend::X11, "is \"x11\""},
        {"X11 by name, without it", facts("x11"), DesktopBackend::X11, "DISPLAY is not set"},
        {"a name before the command", withSway(facts("sway", "/bin/set")), DesktopBackend::Sway, "is \"sway\""},
        {"Plasma", withDesktop("KDE", "org.kde.plasmashell"), DesktopBackend::Plasma, "\"KDE\", and it draws"},
        {"Plasma on Wayland", withLayerShell(withDesktop("KDE", "org.kde.plasmashell")), DesktopBackend::Plasma,
         "and it draws"},
        {"Plasma elsewhere", withSway(withDesktop("sway", "org.kde.plasmashell")), DesktopBackend::Sway,
         "sway answers"},
        {"Plasma that starts", withX11({}, list("KDE")), DesktopBackend::Plasma, "but org.kde.plasmashell is not"},
        {"its compositor alone", withLayerShell(withX11({}, list("KDE"))), DesktopBackend::Plasma,
         "but org.kde.plasmashell is not"},
        {"sway that calls itself KDE", withSway(withX11({}, list("KDE"))), DesktopBackend::Sway, "sway answers"},
        {"Plasma by name", withDesktop("", "org.kde.plasmashell", facts("plasma")), DesktopBackend::Plasma,
         "QUORVANE_DESKTOP is \"plasma\""},
        {"Plasma by name, without it", withSway(facts("plasma")), DesktopBackend::Plasma, "but org.kde.plasmashell"},
        {"Hyprland", withHyprland(withLayerShell()), DesktopBackend::Hyprland, "Hyprland answers"},
        {"Hyprland of yesterday", withHyprland(withLayerShell(), false), DesktopBackend::LayerShell,
         "zwlr_layer_shell"},
        {"Hyprland by name", withHyprland(facts("hyprland")), DesktopBackend::Hyprland, "is \"hyprland\""},
        {"Hyprland by name, without it", facts("hyprland"), DesktopBackend::Hyprland,
         "but HYPRLAND_INSTANCE_SIGNATURE"},
        {"a compositor with layers", withLayerShell(), DesktopBackend::LayerShell, "while the application runs"},
        {"sway has one too", withSway(withLayerShell()), DesktopBackend::Sway, "sway answers"},
        {"layers by name in sway", withSway(withLayerShell(facts("layer-shell"))), DesktopBackend::LayerShell,
         "is \"lay"},
        {"layers by name, without", withWayland(facts("layer-shell")), DesktopBackend::LayerShell,
         "does not offer zwlr"},
        {"layers by name on X11", withX11(facts("layer-shell")), DesktopBackend::LayerShell,
         "WAYLAND_DISPLAY is not set"},
        {"a portal and nothing else", withPortal(withWayland()), DesktopBackend::Portal, "nothing else is known"},
        {"a portal beside plain X11", withPortal(withX11()), DesktopBackend::X11, "DISPLAY is set"},
        {"a portal beside layers", withPortal(withLayerShell()), DesktopBackend::LayerShell, "zwlr_layer_shell"},
        {"a sandbox", inSandbox(withPortal(withLayerShell())), DesktopBackend::Portal, "this is a sandbox"},
        {"a sandbox without portal", inSandbox(withLayerShell()), DesktopBackend::LayerShell, "zwlr_layer_shell"},
        {"the portal by name", withPortal(withSway(facts("portal"))), DesktopBackend::Portal, "is \"portal\""},
        {"the portal by name, without", withSway(facts("portal")), DesktopBackend::Portal, "but no portal"},
        {"GNOME by name", withDesktop("", "org.gnome.Shell", facts("gnome")), DesktopBackend::Gnome, "is \"gnome\""},
        {"GNOME by name in Budgie", withDesktop("Budgie:GNOME", "org.gnome.Shell", facts("gnome")),
         DesktopBackend::Gnome, "but org.budgie_desktop.BudgieWM is not"},
        {"GNOME by name, without it", withSway(facts("gnome")), DesktopBackend::Gnome,
         "but its settings \"org.gnome.desktop.background\" are not installed"},
        {"XFCE by name in GNOME", withDesktop("GNOME", "org.gnome.Shell", facts("xfce")), DesktopBackend::Xfce,
         "but org.xfce.xfdesktop is not"},
        {"LXQt by name, without a display", facts("lxqt"), DesktopBackend::Lxqt, "but DISPLAY is not set"},
        {"an unknown name", withSway(facts("windows")), DesktopBackend::None, "none of gnome, plasma, xfce"},
        {"capital letters", withSway(facts("Sway")), DesktopBackend::None, "is \"Sway\", which is none of"},
    };
    for (const Case &each : cases) {
        const DesktopChoice choice = chooseDesktop(each.facts);
        EXPECT_EQ(choice.way, each.way) << each.what;
        EXPECT_TRUE(choice.reason.contains(QString::fromUtf8(each.reason)))
            << each.what << ": " << choice.reason.toStdString();
        EXPECT_FALSE(choice.reason.contains('\n'_L1)) << each.what;
    }
}

TEST(DesktopChoice, everyWayHasTheNameThatChoosesIt)
{
    for (const char *name : {"gnome", "plasma", "xfce", "mate", "cinnamon", "lxqt", "sway", "hyprland", "layer-shell",
                             "x11", "portal", "command"}) {
        const DesktopChoice choice = chooseDesktop(withX11(withSway(facts(name, "/bin/set"))));
        EXPECT_EQ(nameOf(choice.way), QString::fromLatin1(name)) << choice.reason.toStdString();
    }
    EXPECT_EQ(nameOf(DesktopBackend::None), QString());
}

} // namespace quorvane
