// How the system wants programs to look, as a desktop portal of the test's own tells it.

#include "Support/Desktop/LoginSession.h"

#include "Platform/System/FileManager.h"
#include "Platform/System/SystemAppearance.h"
#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using ColorScheme = Appearance::ColorScheme;

const QString kCommon = u"org.freedesktop.appearance"_s;
const QString kScheme = u"color-scheme"_s;

PortalSettings with(const char *space, const char *key, const QVariant &value)
{
    return {{QLatin1String(space), {{QLatin1String(key), value}}}};
}

/// The desktop portal's settings, and nothing else of it.
class Portal : public QDBusVirtualObject
{
  public:
    Portal(QDBusConnection bus, PortalSettings settings)
        : m_bus(std::move(bus))
        , m_settings(std::move(settings))
    {
        m_bus.registerVirtualObject(u"/org/freedesktop/portal/desktop"_s, this);
        EXPECT_TRUE(m_bus.registerService(u"org.freedesktop.portal.Desktop"_s));
    }
    ~Portal() override
    {
        m_bus.unregisterService(u"org.freedesktop.portal.Desktop"_s);
        m_bus.unregisterObject(u"/org/freedesktop/portal/desktop"_s);
    }
    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        return message.member() == "ReadAll"_L1 &&
               connection.send(message.createReply(QVariant::fromValue(m_settings)));
    }
    void set(const QString &space, const QString &key, const QVariant &value)
    {
        QDBusMessage signal = QDBusMessage::createSignal(u"/org/freedesktop/portal/desktop"_s,
                                                         u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal.setArguments({space, key, QVariant::fromValue(QDBusVariant(value))});
        EXPECT_TRUE(m_bus.send(signal));
    }

  private:
    QDBusConnection m_bus;
    PortalSettings m_settings;
};

/// A file manager that keeps what it is asked to show.
class Files : public QDBusVirtualObject
{
  public:
    explicit Files(QDBusConnection bus)
    {
        bus.registerVirtualObject(u"/org/freedesktop/FileManager1"_s, this);
        EXPECT_TRUE(bus.registerService(u"org.freedesktop.FileManager1"_s));
    }
    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        asked = message;
        return connection.send(message.createReply());
    }
    QDBusMessage asked;
};

} // namespace

TEST(AppearanceOf, readsWhatEachDesktopSays)
{
    const auto schemeFor = [](uint value) {
        return appearanceOf(with("org.freedesktop.appearance", "color-scheme", value)).colorScheme;
    };
    EXPECT_EQ(schemeFor(0), ColorScheme::NoPreference);
    EXPECT_EQ(schemeFor(1), ColorScheme::Dark);
    EXPECT_EQ(schemeFor(2), ColorScheme::Light);
    EXPECT_EQ(schemeFor(3), ColorScheme::NoPreference);
    EXPECT_EQ(appearanceOf({}), Appearance());

    const auto isReduced = [](const char *space, const char *key, const QVariant &value) {
        return appearanceOf(with(space, key, value)).reducesMotion;
    };
    EXPECT_TRUE(isReduced("org.freedesktop.appearance", "reduced-motion", 1U));
    EXPECT_FALSE(isReduced("org.freedesktop.appearance", "reduced-motion", 0U));
    EXPECT_TRUE(isReduced("org.gnome.desktop.interface", "enable-animations", false));
    EXPECT_FALSE(isReduced("org.gnome.desktop.interface", "enable-animations", true));
    EXPECT_TRUE(isReduced("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"0"_s));
    EXPECT_FALSE(isReduced("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"0.5"_s));
    EXPECT_FALSE(isReduced("org.kde.kdeglobals.KDE", "AnimationDurationFactor", u"nonsense"_s));
}

TEST(SettingsInFiles, areThoseOfPlasmaAndOfGtk)
{
    const PrivateHome home;
    EXPECT_EQ(settingsInFiles(), PortalSettings());
    ASSERT_TRUE(QDir().mkpath(home.path() + u"/.config/gtk-4.0"_s));
    ASSERT_TRUE(putFile(home.path() + u"/.config/kdeglobals"_s, "[KDE]\nAnimationDurationFactor=0\n"));
    EXPECT_TRUE(appearanceOf(settingsInFiles()).reducesMotion);
    ASSERT_TRUE(putFile(home.path() + u"/.config/kdeglobals"_s, "[KDE]\nAnimationDurationFactor=0.5\n"));
    EXPECT_FALSE(appearanceOf(settingsInFiles()).reducesMotion);
    ASSERT_TRUE(putFile(home.path() + u"/.config/gtk-4.0/settings.ini"_s, "[Settings]\ngtk-enable-animations=false\n"));
    EXPECT_TRUE(appearanceOf(settingsInFiles()).reducesMotion);
}

class SystemAppearanceTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = whyNoBus();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString();
        }
        qDBusRegisterMetaType<PortalSettings>();
        ASSERT_TRUE(session.startBus());
        qputenv("DBUS_SESSION_BUS_ADDRESS", session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s).toLocal8Bit());
    }
    ~SystemAppearanceTest() override { qunsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    LoginSession session;
};

TEST_F(SystemAppearanceTest, itFollowsThePortalWhileItLives)
{
    Portal portal(session.connection(), with("org.freedesktop.appearance", "color-scheme", 1U));
    const SystemAppearance system;
    EXPECT_TRUE(waitFor([&] { return system.appearance().colorScheme == ColorScheme::Dark; }));
    portal.set(kCommon, kScheme, 2U);
    EXPECT_TRUE(waitFor([&] { return system.appearance().colorScheme == ColorScheme::Light; }));
    EXPECT_FALSE(system.appearance().reducesMotion);
    portal.set(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, false);
    EXPECT_TRUE(waitFor([&] { return system.appearance().reducesMotion; }));
    EXPECT_EQ(system.appearance().colorScheme, ColorScheme::Light);
}

TEST_F(SystemAppearanceTest, settingsOfOtherProgramsAreNoNews)
{
    Portal portal(session.connection(), {});
    const SystemAppearance system;
    int changes = 0;
    QObject::connect(&system, &SystemAppearance::changed, [&changes] { ++changes; });
    portal.set(u"org.gnome.desktop.interface"_s, u"font-name"_s, u"Sans 11"_s);
    portal.set(kCommon, kScheme, 1U);
    EXPECT_TRUE(waitFor([&] { return system.appearance().colorScheme == ColorScheme::Dark; }));
    EXPECT_EQ(changes, 1);
}

TEST_F(SystemAppearanceTest, aFileManagerIsAskedToShowTheFile)
{
    const Files files(session.connection());
    FileManager manager;
    manager.show(u"/tmp/a lake #1.png"_s);
    ASSERT_TRUE(waitFor([&] { return files.asked.member() == "ShowItems"_L1; }));
    EXPECT_EQ(files.asked.arguments().at(0).toStringList(), QStringList{u"file:///tmp/a%20lake%20%231.png"_s});
    EXPECT_EQ(files.asked.signature(), u"ass"_s);
}

/// What is opened instead of a picture in the file manager: the address that the opener gets.
QByteArray openedInstead(const QString &folder)
{
    EXPECT_TRUE(QDir().mkpath(folder + u"/bin"_s));
    const QString opener = folder + u"/bin/xdg-open"_s;
    EXPECT_TRUE(
        putFile(opener, "#!/bin/sh\nprintf %s \"$1\" > \"$HOME/part\" && mv \"$HOME/part\" \"$HOME/opened\"\n"));
    EXPECT_TRUE(QFile::setPermissions(opener, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", (folder + u"/bin:"_s).toLocal8Bit() + before);
    FileManager manager;
    manager.show(folder + u"/Pictures/one.png"_s);
    const QString opened = folder + u"/opened"_s;
    EXPECT_TRUE(waitFor([&] { return QFile::exists(opened); }));
    qputenv("PATH", before);
    return contentOf(opened);
}

TEST_F(SystemAppearanceTest, withoutAFileManagerOnTheBusTheFolderIsOpened)
{
    const QString folder = session.home().path();
    EXPECT_EQ(openedInstead(folder), (folder + u"/Pictures"_s).toLocal8Bit());
}

TEST_F(SystemAppearanceTest, withoutABusTheFolderIsOpened)
{
    const QString folder = session.home().path();
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    EXPECT_EQ(openedInstead(folder), (folder + u"/Pictures"_s).toLocal8Bit());
}

} // namespace quorvane
