// How the system wants programs to look, as a desktop portal of the test's own tells it.

#include "Desktop/System/SystemAppearanceFixture.h"

#include "Platform/System/FileManager.h"
#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QDBusVariant>
#include <QDBusVirtualObject>

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

} // namespace quorvane
