#include "Platform/Desktops/Choice/DesktopPictureOfSession.h"
#include "Support/Results.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// No desktop for as long as the object lives, except what a test sets.
class BareEnvironment
{
  public:
    BareEnvironment()
    {
        for (const char *name :
             {"QUORVANE_DESKTOP", "QUORVANE_WALLPAPER_COMMAND", "SWAYSOCK", "WAYLAND_DISPLAY", "DISPLAY",
              "XDG_CURRENT_DESKTOP", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "HYPRLAND_INSTANCE_SIGNATURE"}) {
            m_before[name] = qEnvironmentVariableIsSet(name) ? qgetenv(name) : QByteArray();
            qunsetenv(name);
        }
    }
    ~BareEnvironment()
    {
        for (const auto &[name, value] : m_before) {
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
        }
    }
    BareEnvironment(const BareEnvironment &) = delete;
    BareEnvironment &operator=(const BareEnvironment &) = delete;

  private:
    std::map<const char *, QByteArray> m_before;
};

} // namespace

TEST(DesktopPicture, withoutAnyDesktopThereAreNoScreens)
{
    const BareEnvironment bare;
    const auto desktop = makeDesktopPicture();
    EXPECT_EQ(desktop->name(), QString());
    EXPECT_EQ(desktop->screens(), QList<Screen>());
    EXPECT_EQ(desktop->setPicture(u"/p"_s, {}), Failure{desktop->reason()});
    EXPECT_NE(desktop->reason(), QString());
}

TEST(DesktopPicture, aDesktopThatIsWantedButUnknownIsNotReplacedByAnother)
{
    const BareEnvironment bare;
    qputenv("DISPLAY", ":7654");
    qputenv("QUORVANE_DESKTOP", "windows");
    const auto desktop = makeDesktopPicture();
    EXPECT_EQ(desktop->name(), QString());
    EXPECT_TRUE(desktop->reason().contains(u"\"windows\""_s));
}

TEST(DesktopPicture, theWayIsWhatTheEnvironmentSays)
{
    const BareEnvironment bare;
    qputenv("DISPLAY", ":7654");
    EXPECT_EQ(makeDesktopPicture()->name(), u"x11"_s);
    qputenv("QUORVANE_DESKTOP", "sway");
    EXPECT_EQ(makeDesktopPicture()->name(), u"sway"_s);
    EXPECT_EQ(makeDesktopPicture()->screens(), QList<Screen>());
    qunsetenv("QUORVANE_DESKTOP");
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    EXPECT_EQ(makeDesktopPicture()->name(), u"plasma"_s);
    qputenv("XDG_CURRENT_DESKTOP", "Deepin");
    EXPECT_EQ(makeDesktopPicture()->name(), QString());
    qputenv("QUORVANE_WALLPAPER_COMMAND", "/bin/true");
    EXPECT_EQ(makeDesktopPicture()->name(), u"command"_s);
    EXPECT_EQ(makeDesktopPicture()->screens().size(), 1);
}

TEST(DesktopPicture, theChoiceIsMadeAnewForEachPictureAndAWayThatIsStillThereStays)
{
    const BareEnvironment bare;
    const auto desktop = makeDesktopPicture();
    EXPECT_EQ(desktop->name(), QString());
    qputenv("DISPLAY", ":7654"); // The desktop comes up later than a program that starts with the session.
    EXPECT_EQ(desktop->screens(), QList<Screen>());
    EXPECT_EQ(desktop->name(), u"x11"_s);
    qputenv("QUORVANE_DESKTOP", "x11");
    EXPECT_EQ(desktop->screens(), QList<Screen>());
    EXPECT_FALSE(desktop->reason().contains(u"QUORVANE_DESKTOP"_s)) << "it is the object of before";
    qunsetenv("QUORVANE_DESKTOP");
    qputenv("QUORVANE_WALLPAPER_COMMAND", "/bin/true");
    EXPECT_EQ(desktop->name(), u"x11"_s) << "until somebody asks for the screens";
    EXPECT_EQ(desktop->screens().size(), 1);
    EXPECT_EQ(desktop->name(), u"command"_s);
}

TEST(DesktopPicture, aDesktopThatIsNamedButNotThereSaysSo)
{
    const BareEnvironment bare;
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    const auto desktop = makeDesktopPicture();
    EXPECT_EQ(desktop->name(), u"xfce"_s);
    EXPECT_TRUE(desktop->reason().endsWith(u"but org.xfce.xfdesktop is not on the session bus"_s));
}

} // namespace quorvane
