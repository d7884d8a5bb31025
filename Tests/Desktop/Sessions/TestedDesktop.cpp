#include "TestedDesktop.h"

#include "GnomeDesktop.h"
#include "PlasmaDesktop.h"
#include "PlasmaWaylandDesktop.h"
#include "X11Desktop.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QStringList setting(const char *schema, const char *key, const char *value)
{
    return {u"gsettings"_s, u"set"_s, QString::fromLatin1(schema), QString::fromLatin1(key),
            QString::fromLatin1(value)};
}

template <typename Kind> TestedDesktop tested(const RealDesktop::Plan &plan)
{
    QStringList programs;
    for (const QStringList &command : plan.commands + plan.preparations) {
        programs.append(command.constFirst());
    }
    return {plan.name, plan.isBig, programs, &Kind::missing, [plan] { return std::make_unique<Kind>(plan); }};
}

/// In no folder of programs since Debian 13.
QString mateSettingsDaemon()
{
    const QString name = u"mate-settings-daemon"_s;
    return firstMissing({name}).isEmpty() ? name : u"/usr/libexec/"_s + name;
}

QStringList words(const char *command)
{
    return QString::fromLatin1(command).split(' '_L1);
}

} // namespace

QString TestedDesktop::missing() const
{
    const QString kind = missingBesides();
    const QString bus = PrivateSession::missingProgram();
    return !kind.isEmpty() ? kind : !bus.isEmpty() ? bus : firstMissing(programs);
}

const QList<TestedDesktop> &testedDesktops()
{
    const auto text = [](const char *value) { return QString::fromLatin1(value); };
    static const QList<TestedDesktop> desktops{
        tested<X11Desktop>({text("xfce"),
                            text("XFCE"),
                            text("xfce"),
                            text("org.xfce.xfdesktop"),
                            {words("xfwm4 --compositor=off"), words("xfdesktop --disable-wm-check")},
                            {words("xfconf-query -c xfce4-desktop -np /desktop-icons/style -t int -s 0")},
                            RealDesktop::Plan::Crop::FromAll,
                            RealDesktop::Plan::Ready::WithName,
                            false}),
        tested<X11Desktop>({text("lxqt"),
                            text("LXQt"),
                            text("lxqt"),
                            text("org.pcmanfm.PCManFM"),
                            {words("xfwm4 --compositor=off"), words("pcmanfm-qt --desktop --profile=lxqt")},
                            {},
                            RealDesktop::Plan::Crop::FromAll,
                            RealDesktop::Plan::Ready::WithName,
                            false}),
        tested<X11Desktop>({text("mate"),
                            text("MATE"),
                            text("mate"),
                            text("org.mate.Caja"),
                            {words("marco --no-composite"), words("caja --force-desktop --no-default-window")},
                            {setting("org.mate.caja.desktop", "computer-icon-visible", "false"),
                             setting("org.mate.caja.desktop", "home-icon-visible", "false"),
                             setting("org.mate.caja.desktop", "trash-icon-visible", "false")},
                            RealDesktop::Plan::Crop::FromWhatAnotherShows,
                            RealDesktop::Plan::Ready::WhenAnnounced}),
        tested<X11Desktop>({text("mateWithoutIcons"),
                            text("MATE"),
                            text("mate"),
                            text("org.mate.SettingsDaemon"),
                            {{mateSettingsDaemon()}},
                            {setting("org.mate.background", "show-desktop-icons", "false"),
                             // It would lay the screens out at the same time as the test does.
                             setting("org.mate.SettingsDaemon.plugins.xrandr", "active", "false")},
                            RealDesktop::Plan::Crop::FromWhatAnotherShows,
                            RealDesktop::Plan::Ready::WhenAnnounced}),
        tested<X11Desktop>({text("cinnamon"),
                            text("X-Cinnamon"),
                            text("cinnamon"),
                            text("org.Cinnamon"),
                            {words("cinnamon-session-cinnamon")},
                            {setting("org.nemo.desktop", "show-desktop-icons", "false")},
                            RealDesktop::Plan::Crop::FromWhatAnotherShows,
                            RealDesktop::Plan::Ready::WhenAnnounced}),
        tested<X11Desktop>({text("budgie"),
                            text("Budgie:GNOME"),
                            text("gnome"),
                            text("org.budgie_desktop.BudgieWM"),
                            {words("budgie-wm --x11")},
                            {}}),
        tested<GnomeDesktop>({text("gnome"),
                              text("GNOME"),
                              text("gnome"),
                              text("org.gnome.Shell"),
                              {words("gnome-shell --headless --unsafe-mode --wayland --no-x11 "
                                     "--virtual-monitor 1280x720 --virtual-monitor 800x600")},
                              {setting("org.gnome.shell", "welcome-dialog-last-shown-version", "'99.0'")}}),
        tested<PlasmaDesktop>(
            {text("plasma"), text("KDE"), text("plasma"), text("org.kde.plasmashell"), plasmaCommands(), {}}),
        tested<PlasmaWaylandDesktop>(
            {text("plasmaOnWayland"), text("KDE"), text("plasma"), text("org.kde.plasmashell"), plasmaCommands(), {}}),
    };
    return desktops;
}

} // namespace quorvane
