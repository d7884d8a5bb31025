#pragma once

#include "Platform/Bus/SessionBus.h"

#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariantMap>

namespace quorvane {

/// What the user set for all programs.
struct Appearance
{
    enum class ColorScheme { NoPreference, Dark, Light };

    ColorScheme colorScheme = ColorScheme::NoPreference;
    bool reducesMotion = false;

    friend bool operator==(const Appearance &, const Appearance &) = default;
};

/// Settings by namespace, then by key, as the desktop portal hands them out.
using PortalSettings = QMap<QString, QVariantMap>;

/// What the settings say. Motion is reduced where any of them asks for it: the portal's own setting, GNOME's switch for
/// animations, or a length of animations of 0 in Plasma.
[[nodiscard]] Appearance appearanceOf(const PortalSettings &settings);

/// The part of the settings that files in the home keep: Plasma's "kdeglobals" and GTK's "settings.ini".
[[nodiscard]] PortalSettings settingsInFiles();

/// How the system wants programs to look, followed while the object lives. The desktop portal tells; where there is
/// none, the files say how it was at the start.
class SystemAppearance : public QObject
{
    Q_OBJECT

  public:
    explicit SystemAppearance(QObject *parent = nullptr);

    [[nodiscard]] const Appearance &appearance() const { return m_appearance; }

  Q_SIGNALS:
    void changed();

  private Q_SLOTS:
    void settingChanged(const QString &space, const QString &key, const QDBusVariant &value);

  private:
    void attach();
    void update();

    PortalSettings m_settings;
    Appearance m_appearance;
    SessionBus m_bus;
};

} // namespace quorvane
