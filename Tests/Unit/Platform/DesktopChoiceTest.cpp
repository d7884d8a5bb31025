#include "Platform/DesktopChoice.h"

#include "Platform/SessionDesktops.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

struct Case
{
    const char *what;
    DesktopFacts facts;
    DesktopWay way;
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
    return QString::fromUtf8(entries).split(QLatin1Char(':'));
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
        {"nothing at all", {}, DesktopWay::None, "neither SWAYSOCK nor DISPLAY"},
        {"sway", withSway(), DesktopWay::Sway, "sway answers"},
        {"sway with Xwayland", withSway(withX11()), DesktopWay::Sway, "sway answers"},
        {"a socket left from yesterday", withDeafSway(), DesktopWay::None, "nobody answers"},
        {"the same under X11", withDeafSway(withX11()), DesktopWay::X11, "DISPLAY is set"},
        {"another Wayland desktop", withWayland(withX11()), DesktopWay::None, "this Wayland desktop"},
        {"plain X11", withX11(), DesktopWay::X11, "DISPLAY is set"},
        {"i3", withX11({}, list("i3")), DesktopWay::X11, "DISPLAY is set"},
        {"LXDE", withX11({}, list("LXDE")), DesktopWay::None, "\"LXDE\""},
        {"Ubuntu", withDesktop("ubuntu:GNOME", "org.gnome.Shell"), DesktopWay::Gnome, "\"ubuntu\", and it draws"},
        {"Unity", withDesktop("Unity:Unity7", "com.canonical.Unity"), DesktopWay::Gnome, "\"Unity\", and it draws"},
        {"Budgie", withDesktop("Budgie:GNOME", "org.budgie_desktop.BudgieWM"), DesktopWay::Gnome, "\"Budgie\", and"},
        {"Cinnamon", withDesktop("X-Cinnamon", "org.Cinnamon"), DesktopWay::Cinnamon, "\"X-Cinnamon\", and it draws"},
        {"MATE with icons", withDesktop("MATE", "org.mate.Caja"), DesktopWay::Mate, "and it draws"},
        {"MATE without", withDesktop("MATE", "org.mate.SettingsDaemon"), DesktopWay::Mate, "and it draws"},
        {"XFCE in small letters", withDesktop("xfce", "org.xfce.xfdesktop"), DesktopWay::Xfce,
         "\"xfce\", and it draws"},
        {"LXQt", withDesktop("LXQt", "org.pcmanfm.PCManFM"), DesktopWay::Lxqt, "and it draws"},
        {"LXQt on Wayland", withWayland(withDesktop("LXQt", "org.pcmanfm.PCManFM")), DesktopWay::None, "this Wayland"},
        {"GNOME on Wayland", withWayland(withDesktop("GNOME", "org.gnome.Shell")), DesktopWay::Gnome, "and it draws"},
        {"a desktop that is still starting", withDesktop("XFCE", ""), DesktopWay::Xfce,
         "but org.xfce.xfdesktop is not on the session bus"},
        {"another desktop's program", withDesktop("MATE", "org.gnome.Shell"), DesktopWay::Mate,
         "but org.mate.Caja or org.mate.SettingsDaemon is not on the session bus"},
        {"a desktop without its settings", withX11({}, list("MATE")), DesktopWay::Mate,
         "but its settings \"org.mate.background\" are not installed"},
        {"sway that is called GNOME", withSway(withDesktop("GNOME", "")), DesktopWay::Sway, "sway answers"},
        {"sway that is called sway", withSway(withX11({}, list("sway"))), DesktopWay::Sway, "sway answers"},
        {"a command in GNOME", withDesktop("GNOME", "org.gnome.Shell", facts("", "/bin/set")), DesktopWay::Command,
         "QUORVANE_WALLPAPER_COMMAND"},
        {"a command", facts("", "/bin/set"), DesktopWay::Command, "QUORVANE_WALLPAPER_COMMAND is set"},
        {"a command in sway", withSway(facts("", "/bin/set")), DesktopWay::Command, "QUORVANE_WALLPAPER_COMMAND"},
        {"the command by name", facts("command", "/bin/set"), DesktopWay::Command, "QUORVANE_DESKTOP is \"command\""},
        {"the command by name only", withSway(facts("command")), DesktopWay::None, "COMMAND is not set"},
        {"sway by name", withSway(facts("sway")), DesktopWay::Sway, "QUORVANE_DESKTOP is \"sway\""},
        {"sway by name, without it", withX11(facts("sway")), DesktopWay::Sway, "SWAYSOCK is not set"},
        {"X11 by name in sway", withSway(withX11(facts("x11"))), DesktopWay::X11, "QUORVANE_DESKTOP is \"x11\""},
        {"X11 by name in GNOME", withX11(facts("x11"), list("GNOME")), DesktopWay::X11, "is \"x11\""},
        {"X11 by name, without it", facts("x11"), DesktopWay::X11, "DISPLAY is not set"},
        {"a name before the command", withSway(facts("sway", "/bin/set")), DesktopWay::Sway, "is \"sway\""},
        {"Plasma", withDesktop("KDE", "org.kde.plasmashell"), DesktopWay::Plasma, "\"KDE\", and it draws"},
        {"Plasma on Wayland", withLayerShell(withDesktop("KDE", "org.kde.plasmashell")), DesktopWay::Plasma,
         "and it draws"},
        {"Plasma elsewhere", withSway(withDesktop("sway", "org.kde.plasmashell")), DesktopWay::Sway, "sway answers"},
        {"Plasma that starts", withX11({}, list("KDE")), DesktopWay::Plasma, "but org.kde.plasmashell is not"},
        {"its compositor alone", withLayerShell(withX11({}, list("KDE"))), DesktopWay::Plasma,
         "but org.kde.plasmashell is not"},
        {"sway that calls itself KDE", withSway(withX11({}, list("KDE"))), DesktopWay::Sway, "sway answers"},
        {"Plasma by name", withDesktop("", "org.kde.plasmashell", facts("plasma")), DesktopWay::Plasma,
         "QUORVANE_DESKTOP is \"plasma\""},
        {"Plasma by name, without it", withSway(facts("plasma")), DesktopWay::Plasma, "but org.kde.plasmashell"},
        {"Hyprland", withHyprland(withLayerShell()), DesktopWay::Hyprland, "Hyprland answers"},
        {"Hyprland of yesterday", withHyprland(withLayerShell(), false), DesktopWay::LayerShell, "zwlr_layer_shell"},
        {"Hyprland by name", withHyprland(facts("hyprland")), DesktopWay::Hyprland, "is \"hyprland\""},
        {"Hyprland by name, without it", facts("hyprland"), DesktopWay::Hyprland, "but HYPRLAND_INSTANCE_SIGNATURE"},
        {"a compositor with layers", withLayerShell(), DesktopWay::LayerShell, "while the application runs"},
        {"sway has one too", withSway(withLayerShell()), DesktopWay::Sway, "sway answers"},
        {"layers by name in sway", withSway(withLayerShell(facts("layer-shell"))), DesktopWay::LayerShell, "is \"lay"},
        {"layers by name, without", withWayland(facts("layer-shell")), DesktopWay::LayerShell, "does not offer zwlr"},
        {"layers by name on X11", withX11(facts("layer-shell")), DesktopWay::LayerShell, "WAYLAND_DISPLAY is not set"},
        {"a portal and nothing else", withPortal(withWayland()), DesktopWay::Portal, "nothing else is known"},
        {"a portal beside plain X11", withPortal(withX11()), DesktopWay::X11, "DISPLAY is set"},
        {"a portal beside layers", withPortal(withLayerShell()), DesktopWay::LayerShell, "zwlr_layer_shell"},
        {"a sandbox", inSandbox(withPortal(withLayerShell())), DesktopWay::Portal, "this is a sandbox"},
        {"a sandbox without portal", inSandbox(withLayerShell()), DesktopWay::LayerShell, "zwlr_layer_shell"},
        {"the portal by name", withPortal(withSway(facts("portal"))), DesktopWay::Portal, "is \"portal\""},
        {"the portal by name, without", withSway(facts("portal")), DesktopWay::Portal, "but no portal"},
        {"GNOME by name", withDesktop("", "org.gnome.Shell", facts("gnome")), DesktopWay::Gnome, "is \"gnome\""},
        {"GNOME by name in Budgie", withDesktop("Budgie:GNOME", "org.gnome.Shell", facts("gnome")), DesktopWay::Gnome,
         "but org.budgie_desktop.BudgieWM is not"},
        {"GNOME by name, without it", withSway(facts("gnome")), DesktopWay::Gnome,
         "but its settings \"org.gnome.desktop.background\" are not installed"},
        {"XFCE by name in GNOME", withDesktop("GNOME", "org.gnome.Shell", facts("xfce")), DesktopWay::Xfce,
         "but org.xfce.xfdesktop is not"},
        {"LXQt by name, without a display", facts("lxqt"), DesktopWay::Lxqt, "but DISPLAY is not set"},
        {"an unknown name", withSway(facts("windows")), DesktopWay::None, "none of gnome, plasma, xfce"},
        {"capital letters", withSway(facts("Sway")), DesktopWay::None, "is \"Sway\", which is none of"},
    };
    for (const Case &each : cases) {
        const DesktopChoice choice = chooseDesktop(each.facts);
        EXPECT_EQ(choice.way, each.way) << each.what;
        EXPECT_TRUE(choice.reason.contains(QString::fromUtf8(each.reason)))
            << each.what << ": " << choice.reason.toStdString();
        EXPECT_FALSE(choice.reason.contains(QLatin1Char('\n'))) << each.what;
    }
}

TEST(DesktopChoice, everyWayHasTheNameThatChoosesIt)
{
    for (const char *name : {"gnome", "plasma", "xfce", "mate", "cinnamon", "lxqt", "sway", "hyprland", "layer-shell",
                             "x11", "portal", "command"}) {
        const DesktopChoice choice = chooseDesktop(withX11(withSway(facts(name, "/bin/set"))));
        EXPECT_EQ(nameOf(choice.way), QString::fromLatin1(name)) << choice.reason.toStdString();
    }
    EXPECT_EQ(nameOf(DesktopWay::None), QString());
}

} // namespace quorvane
