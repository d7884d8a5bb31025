#include "Platform/System/SystemAppearance.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QSettings>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString portal()
{
    return u"org.freedesktop.portal.Desktop"_s;
}

QString portalPath()
{
    return u"/org/freedesktop/portal/desktop"_s;
}

QString portalInterface()
{
    return u"org.freedesktop.portal.Settings"_s;
}

// Where each says it.
const QString kCommon = u"org.freedesktop.appearance"_s;
const QString kGnome = u"org.gnome.desktop.interface"_s;
const QString kGnomeAnimations = u"enable-animations"_s;
const QString kPlasma = u"org.kde.kdeglobals.KDE"_s;
const QString kPlasmaLength = u"AnimationDurationFactor"_s;

QVariant valueOf(const PortalSettings &settings, const QString &space, const QString &key)
{
    return settings.value(space).value(key);
}

/// The value of a key in a file of the configuration folder; invalid where there is none.
QVariant valueInFile(const QString &file, const QString &key)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QSettings(folder + '/'_L1 + file, QSettings::IniFormat).value(key);
}

} // namespace

Appearance appearanceOf(const PortalSettings &settings)
{
    Appearance appearance;
    const uint scheme = valueOf(settings, kCommon, u"color-scheme"_s).toUInt();
    appearance.colorScheme = scheme == 1   ? Appearance::ColorScheme::Dark
                             : scheme == 2 ? Appearance::ColorScheme::Light
                                           : Appearance::ColorScheme::NoPreference;
    const QVariant animations = valueOf(settings, kGnome, kGnomeAnimations);
    bool isNumber = false;
    const double length = valueOf(settings, kPlasma, kPlasmaLength).toDouble(&isNumber);
    appearance.reducesMotion = valueOf(settings, kCommon, u"reduced-motion"_s).toUInt() == 1 ||
                               (animations.isValid() && !animations.toBool()) || (isNumber && length == 0);
    return appearance;
}

PortalSettings settingsInFiles()
{
    PortalSettings settings;
    const QVariant length = valueInFile(u"kdeglobals"_s, u"KDE/"_s + kPlasmaLength);
    if (length.isValid()) {
        settings[kPlasma][kPlasmaLength] = length;
    }
    for (const char *file : {"gtk-3.0/settings.ini", "gtk-4.0/settings.ini"}) {
        const QVariant animations = valueInFile(QLatin1String(file), u"Settings/gtk-enable-animations"_s);
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
    bus.connect(portal(), portalPath(), portalInterface(), u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage call = QDBusMessage::createMethodCall(portal(), portalPath(), portalInterface(), u"ReadAll"_s);
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
