#include "Platform/Desktops/SessionDesktops.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(SessionDesktops)
};

using Form = BackgroundSettings::Form;
using Content = BackgroundSettings::Content;

/// "zoom" fills each screen, cropped around the centre.
QVariantMap zoom()
{
    return {{u"picture-options"_s, u"zoom"_s}};
}

/// Since GNOME 42 the dark style has a picture of its own. The shell keeps what it read under a name for as long as it
/// has a use for the memory, and Budgie as long as it shows it.
BackgroundSettings gnomeSettings()
{
    return {u"org.gnome.desktop.background"_s,
            {u"picture-uri"_s, u"picture-uri-dark"_s},
            Form::Address,
            Content::KeptByName,
            zoom()};
}

BackgroundSettings cinnamonSettings()
{
    return {u"org.cinnamon.desktop.background"_s, {u"picture-uri"_s}, Form::Address, Content::Followed, zoom()};
}

BackgroundSettings mateSettings()
{
    QVariantMap others = zoom();
    others.insert(u"draw-background"_s, true);
    return {u"org.mate.background"_s, {u"picture-filename"_s}, Form::Path, Content::Followed, others};
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
        {u"Plasma"_s, DesktopBackend::Plasma, texts({"KDE"}), texts({"org.kde.plasmashell"}), {}},
        {u"Budgie"_s, DesktopBackend::Gnome, texts({"Budgie"}), texts({"org.budgie_desktop.BudgieWM"}),
         gnomeSettings()},
        {u"Cinnamon"_s, DesktopBackend::Cinnamon, texts({"X-Cinnamon", "Cinnamon"}), texts({"org.Cinnamon"}),
         cinnamonSettings()},
        // The file manager draws it behind its icons; where there are none, the settings daemon does.
        {u"MATE"_s, DesktopBackend::Mate, texts({"MATE"}), texts({"org.mate.Caja", "org.mate.SettingsDaemon"}),
         mateSettings()},
        {u"XFCE"_s, DesktopBackend::Xfce, texts({"XFCE"}), texts({"org.xfce.xfdesktop"}), {}},
        // On Wayland its desktop is one window for each screen, which is not told over the bus.
        {u"LXQt"_s,
         DesktopBackend::Lxqt,
         texts({"LXQt"}),
         texts({"org.pcmanfm.PCManFM"}),
         {},
         SessionDesktop::Displays::OnlyX11},
        {u"GNOME"_s, DesktopBackend::Gnome, texts({"GNOME", "Unity", "ubuntu", "pop", "Pantheon"}),
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

Result<> findPainter(const SessionDesktop &desktop, const MessageBus &bus)
{
    const Result<QStringList> present = bus.names();
    if (!present) {
        return present.failure();
    }
    const bool isThere = std::any_of(desktop.painters.begin(), desktop.painters.end(),
                                     [&](const QString &painter) { return present->contains(painter); });
    return isThere ? kDone
                   : Failure{Tr::tr("%1 does not draw the background now: %2 is not on the session bus")
                                 .arg(desktop.title, desktop.painters.join(Tr::tr(" or ")))};
}

} // namespace quorvane
