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
        {"a name for later with a dash", withSway(facts("layer-shell")), DesktopWay::None, "does not support yet"},
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
