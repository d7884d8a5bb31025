#include "Platform/System/SystemAppearance.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QSettings>
#include <QStandardPaths>

namespace quorvane {

namespace {

QString portal()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

QString portalPath()
{
    return QStringLiteral("/org/freedesktop/portal/desktop");
}

QString portalInterface()
{
    return QStringLiteral("org.freedesktop.portal.Settings");
}

// Where each says it.
const QString kCommon = QStringLiteral("org.freedesktop.appearance");
const QString kGnome = QStringLiteral("org.gnome.desktop.interface");
const QString kGnomeAnimations = QStringLiteral("enable-animations");
const QString kPlasma = QStringLiteral("org.kde.kdeglobals.KDE");
const QString kPlasmaLength = QStringLiteral("AnimationDurationFactor");

QVariant valueOf(const PortalSettings &settings, const QString &space, const QString &key)
{
    return settings.value(space).value(key);
}

/// The value of a key in a file of the configuration folder; invalid where there is none.
QVariant valueInFile(const QString &file, const QString &key)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QSettings(folder + QLatin1Char('/') + file, QSettings::IniFormat).value(key);
}

} // namespace

Appearance appearanceOf(const PortalSettings &settings)
{
    Appearance appearance;
    const uint scheme = valueOf(settings, kCommon, QStringLiteral("color-scheme")).toUInt();
    appearance.colorScheme = scheme == 1   ? Appearance::ColorScheme::Dark
                             : scheme == 2 ? Appearance::ColorScheme::Light
                                           : Appearance::ColorScheme::NoPreference;
    const QVariant animations = valueOf(settings, kGnome, kGnomeAnimations);
    bool isNumber = false;
    const double length = valueOf(settings, kPlasma, kPlasmaLength).toDouble(&isNumber);
    appearance.reducesMotion = valueOf(settings, kCommon, QStringLiteral("reduced-motion")).toUInt() == 1 ||
                               (animations.isValid() && !animations.toBool()) || (isNumber && length == 0);
    return appearance;
}

PortalSettings settingsInFiles()
{
    PortalSettings settings;
    const QVariant length = valueInFile(QStringLiteral("kdeglobals"), QStringLiteral("KDE/") + kPlasmaLength);
    if (length.isValid()) {
        settings[kPlasma][kPlasmaLength] = length;
    }
    for (const char *file : {"gtk-3.0/settings.ini", "gtk-4.0/settings.ini"}) {
        const QVariant animations = valueInFile(QLatin1String(file), QStringLiteral("Settings/gtk-enable-animations"));
        if (animations.isValid()) {
            settings[kGnome][kGnomeAnimations] = animations;
        }
    }
    return settings;
}

SystemAppearance::SystemAppearance(QObject *parent)
    : QObject(parent)
    , m_settings(settingsInFiles())
    , m_appearance(appearanceOf(m_settings))
{
    qDBusRegisterMetaType<PortalSettings>();
    qRegisterMetaType<QDBusVariant>(); // The slot below is found by the names of its types.
    connect(&m_bus, &SessionBus::connected, this, &SystemAppearance::attach);
    attach();
}

void SystemAppearance::attach()
{
    if (!m_bus.isConnected()) {
        return;
    }
    QDBusConnection bus = m_bus.connection();
    bus.connect(portal(), portalPath(), portalInterface(), QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage call =
        QDBusMessage::createMethodCall(portal(), portalPath(), portalInterface(), QStringLiteral("ReadAll"));
    call.setArguments({QStringList{kCommon, kGnome, kPlasma}});
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<PortalSettings> reply = *watcher;
        watcher->deleteLater();
        if (reply.isValid()) {
            // What the portal leaves out stays as the files have it.
            const PortalSettings told = reply.value();
            for (auto space = told.begin(); space != told.end(); ++space) {
                m_settings[space.key()].insert(space.value());
            }
            update();
        }
    });
}

void SystemAppearance::settingChanged(const QString &space, const QString &key, const QDBusVariant &value)
{
    m_settings[space].insert(key, value.variant());
    update();
}

void SystemAppearance::update()
{
    const Appearance appearance = appearanceOf(m_settings);
    if (appearance != m_appearance) {
        m_appearance = appearance;
        Q_EMIT changed();
    }
}

} // namespace quorvane
