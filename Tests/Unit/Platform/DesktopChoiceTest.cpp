#include "Platform/DesktopChoice.h"

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

DesktopFacts withNames(DesktopFacts base, const char *entries)
{
    base.currentDesktops = list(entries);
    return base;
}

DesktopFacts withPlasma(DesktopFacts base)
{
    base.plasmaAnswers = true;
    return base;
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
        {"GNOME on X11", withX11({}, list("ubuntu:GNOME")), DesktopWay::None, "\"GNOME\""},
        {"XFCE in small letters", withX11({}, list("xfce")), DesktopWay::None, "\"xfce\""},
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
        {"a name for later", withSway(facts("gnome")), DesktopWay::None, "does not support yet"},
        {"Plasma", withPlasma(withX11()), DesktopWay::Plasma, "plasmashell runs"},
        {"Plasma on Wayland", withPlasma(withLayerShell()), DesktopWay::Plasma, "plasmashell runs"},
        {"Plasma by its name", withNames(withPlasma(withX11()), "KDE"), DesktopWay::Plasma, "plasmashell runs"},
        {"Plasma elsewhere", withNames(withPlasma(withSway()), "sway"), DesktopWay::Sway, "sway answers"},
        {"Plasma that starts", withX11({}, list("KDE")), DesktopWay::Plasma, "not on the session bus yet"},
        {"its compositor alone", withNames(withLayerShell(), "KDE"), DesktopWay::Plasma, "not on the session bus yet"},
        {"sway that calls itself KDE", withNames(withSway(), "KDE"), DesktopWay::Sway, "sway answers"},
        {"Plasma by name", withPlasma(facts("plasma")), DesktopWay::Plasma, "QUORVANE_DESKTOP is \"plasma\""},
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

} // namespace quorvane
