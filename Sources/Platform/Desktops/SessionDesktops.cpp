#include "Platform/Desktops/SessionDesktops.h"

#include <algorithm>

namespace quorvane {

namespace {

using Form = BackgroundSettings::Form;
using Content = BackgroundSettings::Content;

/// "zoom" fills each screen, cropped around the centre.
QVariantMap zoom()
{
    return {{QStringLiteral("picture-options"), QStringLiteral("zoom")}};
}

/// Since GNOME 42 the dark style has a picture of its own. The shell keeps what it read under a name for as long as it
/// has a use for the memory, and Budgie as long as it shows it.
BackgroundSettings gnomeSettings()
{
    return {QStringLiteral("org.gnome.desktop.background"),
            {QStringLiteral("picture-uri"), QStringLiteral("picture-uri-dark")},
            Form::Address,
            Content::KeptByName,
            zoom()};
}

BackgroundSettings cinnamonSettings()
{
    return {QStringLiteral("org.cinnamon.desktop.background"),
            {QStringLiteral("picture-uri")},
            Form::Address,
            Content::Followed,
            zoom()};
}

BackgroundSettings mateSettings()
{
    QVariantMap others = zoom();
    others.insert(QStringLiteral("draw-background"), true);
    return {QStringLiteral("org.mate.background"),
            {QStringLiteral("picture-filename")},
            Form::Path,
            Content::Followed,
            others};
}

} // namespace

const QList<SessionDesktop> &sessionDesktops()
{
    const auto texts = [](std::initializer_list<const char *> list) {
        QStringList result;
        for (const char *each : list) {
            result.append(QString::fromLatin1(each));
        }
        return result;
    };
    static const QList<SessionDesktop> desktops{
        {QStringLiteral("Plasma"), DesktopBackend::Plasma, texts({"KDE"}), texts({"org.kde.plasmashell"}), {}},
        {QStringLiteral("Budgie"), DesktopBackend::Gnome, texts({"Budgie"}), texts({"org.budgie_desktop.BudgieWM"}),
         gnomeSettings()},
        {QStringLiteral("Cinnamon"), DesktopBackend::Cinnamon, texts({"X-Cinnamon", "Cinnamon"}), texts({"org.Cinnamon"}),
         cinnamonSettings()},
        // The file manager draws it behind its icons; where there are none, the settings daemon does.
        {QStringLiteral("MATE"), DesktopBackend::Mate, texts({"MATE"}), texts({"org.mate.Caja", "org.mate.SettingsDaemon"}),
         mateSettings()},
        {QStringLiteral("XFCE"), DesktopBackend::Xfce, texts({"XFCE"}), texts({"org.xfce.xfdesktop"}), {}},
        // On Wayland its desktop is one window for each screen, which is not told over the bus.
        {QStringLiteral("LXQt"),
         DesktopBackend::Lxqt,
         texts({"LXQt"}),
         texts({"org.pcmanfm.PCManFM"}),
         {},
         SessionDesktop::Displays::OnlyX11},
        {QStringLiteral("GNOME"), DesktopBackend::Gnome, texts({"GNOME", "Unity", "ubuntu", "pop", "Pantheon"}),
         texts({"org.gnome.Shell", "com.canonical.Unity", "org.pantheon.gala"}), gnomeSettings()},
    };
    return desktops;
}

const SessionDesktop *sessionDesktop(DesktopBackend way, const QStringList &currentDesktops)
{
    const SessionDesktop *found = nullptr;
    for (const SessionDesktop &desktop : sessionDesktops()) {
        if (desktop.way == way) {
            found = &desktop;
            if (!namingEntry(desktop, currentDesktops).isEmpty()) {
                break;
            }
        }
    }
    return found;
}

QString namingEntry(const SessionDesktop &desktop, const QStringList &currentDesktops)
{
    const auto entry = std::find_if(currentDesktops.begin(), currentDesktops.end(), [&](const QString &each) {
        return desktop.entries.contains(each, Qt::CaseInsensitive);
    });
    return entry == currentDesktops.end() ? QString() : *entry;
}

} // namespace quorvane
