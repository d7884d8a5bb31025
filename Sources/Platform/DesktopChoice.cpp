#include "Platform/DesktopChoice.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <optional>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopChoice)
};

struct KnownName
{
    QLatin1String name;
    DesktopWay way = DesktopWay::None; ///< None: a name that is reserved for a way that does not exist yet.
};

constexpr std::array kKnownNames{
    KnownName{QLatin1String("gnome"), DesktopWay::None},
    KnownName{QLatin1String("plasma"), DesktopWay::Plasma},
    KnownName{QLatin1String("xfce"), DesktopWay::None},
    KnownName{QLatin1String("mate"), DesktopWay::None},
    KnownName{QLatin1String("cinnamon"), DesktopWay::None},
    KnownName{QLatin1String("lxqt"), DesktopWay::None},
    KnownName{QLatin1String("sway"), DesktopWay::Sway},
    KnownName{QLatin1String("hyprland"), DesktopWay::Hyprland},
    KnownName{QLatin1String("layer-shell"), DesktopWay::LayerShell},
    KnownName{QLatin1String("x11"), DesktopWay::X11},
    KnownName{QLatin1String("portal"), DesktopWay::Portal},
    KnownName{QLatin1String("command"), DesktopWay::Command},
};

/// Entries of XDG_CURRENT_DESKTOP whose desktops cover the X11 root window with a window of their own.
constexpr std::array kPaintersOverRoot{
    QLatin1String("GNOME"),  QLatin1String("Unity"),      QLatin1String("Pantheon"), QLatin1String("Budgie"),
    QLatin1String("XFCE"),   QLatin1String("X-Cinnamon"), QLatin1String("Cinnamon"), QLatin1String("MATE"),
    QLatin1String("LXQt"),   QLatin1String("LXDE"),       QLatin1String("Deepin"),   QLatin1String("DDE"),
    QLatin1String("COSMIC"),
};

bool lists(const QStringList &currentDesktops, QLatin1String name)
{
    return currentDesktops.contains(name, Qt::CaseInsensitive);
}

/// What keeps a way that was asked for by name from working; empty where nothing does.
QString obstacle(DesktopWay way, const DesktopFacts &facts)
{
    switch (way) {
    case DesktopWay::Plasma:
        return facts.plasmaAnswers ? QString() : QStringLiteral("org.kde.plasmashell is not on the session bus");
    case DesktopWay::Hyprland:
        return facts.hasHyprland ? QString() : QStringLiteral("HYPRLAND_INSTANCE_SIGNATURE is not set");
    case DesktopWay::LayerShell:
        if (!facts.hasWayland) {
            return QStringLiteral("WAYLAND_DISPLAY is not set");
        }
        return facts.hasLayerShell ? QString() : QStringLiteral("the compositor does not offer zwlr_layer_shell_v1");
    case DesktopWay::Portal:
        return facts.portalAnswers ? QString() : QStringLiteral("no portal of this session sets wallpapers");
    default:
        return {};
    }
}

/// The ways that the session itself shows to be there, the first that fits.
std::optional<DesktopChoice> runningDesktop(const DesktopFacts &facts)
{
    if (facts.isSandboxed && facts.portalAnswers) {
        return DesktopChoice{DesktopWay::Portal, QStringLiteral("this is a sandbox, and its portal sets wallpapers")};
    }
    // One bus may serve two sessions of a user, only one of which is Plasma.
    const bool isNamed = lists(facts.currentDesktops, QLatin1String("KDE"));
    if (facts.plasmaAnswers && (isNamed || facts.currentDesktops.isEmpty())) {
        return DesktopChoice{DesktopWay::Plasma, QStringLiteral("plasmashell runs on the session bus")};
    }
    if (facts.swayAnswers) {
        return DesktopChoice{DesktopWay::Sway, QStringLiteral("sway answers on SWAYSOCK")};
    }
    if (facts.hyprlandAnswers) {
        return DesktopChoice{DesktopWay::Hyprland, QStringLiteral("Hyprland answers on its socket")};
    }
    if (isNamed) {
        // Not anything else: it would lie behind Plasma's desktop as soon as that runs.
        return DesktopChoice{DesktopWay::Plasma, QStringLiteral("XDG_CURRENT_DESKTOP names \"KDE\", "
                                                                "but plasmashell is not on the session bus yet")};
    }
    if (facts.hasLayerShell) {
        return DesktopChoice{DesktopWay::LayerShell, QStringLiteral("the compositor offers zwlr_layer_shell_v1; "
                                                                    "the picture is shown while the application runs")};
    }
    return std::nullopt;
}

DesktopChoice wantedDesktop(const DesktopFacts &facts)
{
    const auto *const known = std::find_if(kKnownNames.begin(), kKnownNames.end(),
                                           [&](const KnownName &entry) { return entry.name == facts.wanted; });
    if (known == kKnownNames.end()) {
        QStringList names;
        for (const KnownName &entry : kKnownNames) {
            names.append(entry.name);
        }
        return {DesktopWay::None, Tr::tr("QUORVANE_DESKTOP is \"%1\", which is none of %2")
                                      .arg(facts.wanted, names.join(QLatin1String(", ")))};
    }
    if (known->way == DesktopWay::None) {
        return {DesktopWay::None,
                Tr::tr("QUORVANE_DESKTOP is \"%1\", which this version does not support yet").arg(facts.wanted)};
    }
    if (known->way == DesktopWay::Command && facts.command.isEmpty()) {
        return {DesktopWay::None,
                Tr::tr("QUORVANE_DESKTOP is \"%1\", but QUORVANE_WALLPAPER_COMMAND is not set").arg(facts.wanted)};
    }
    if (known->way == DesktopWay::Sway && !facts.hasSwaySocket) {
        return {DesktopWay::Sway, Tr::tr("QUORVANE_DESKTOP is \"%1\", but SWAYSOCK is not set").arg(facts.wanted)};
    }
    if (known->way == DesktopWay::X11 && !facts.hasX11) {
        return {DesktopWay::X11, Tr::tr("QUORVANE_DESKTOP is \"%1\", but DISPLAY is not set").arg(facts.wanted)};
    }
    if (const QString problem = obstacle(known->way, facts); !problem.isEmpty()) {
        return {known->way, Tr::tr("QUORVANE_DESKTOP is \"%1\", but %2").arg(facts.wanted, problem)};
    }
    return {known->way, Tr::tr("QUORVANE_DESKTOP is \"%1\"").arg(facts.wanted)};
}

QString painterOverRoot(const QStringList &currentDesktops)
{
    for (const QString &entry : currentDesktops) {
        for (const QLatin1String painter : kPaintersOverRoot) {
            if (entry.compare(painter, Qt::CaseInsensitive) == 0) {
                return entry;
            }
        }
    }
    return {};
}

} // namespace

DesktopChoice chooseDesktop(const DesktopFacts &facts)
{
    if (!facts.wanted.isEmpty()) {
        return wantedDesktop(facts);
    }
    if (!facts.command.isEmpty()) {
        return {DesktopWay::Command, Tr::tr("QUORVANE_WALLPAPER_COMMAND is set")};
    }
    if (std::optional<DesktopChoice> running = runningDesktop(facts)) {
        return *running;
    }
    const QString painter = painterOverRoot(facts.currentDesktops);
    if (facts.hasX11 && !facts.hasWayland && painter.isEmpty()) {
        return {DesktopWay::X11, Tr::tr("DISPLAY is set and no desktop paints over the X11 root window")};
    }
    if (facts.portalAnswers) {
        return {DesktopWay::Portal,
                QStringLiteral("nothing else is known here, and the session's portal sets wallpapers")};
    }
    if (facts.hasWayland) {
        return {DesktopWay::None, Tr::tr("this Wayland desktop is not supported yet; "
                                         "QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture")};
    }
    if (facts.hasX11) {
        return {DesktopWay::None, Tr::tr("XDG_CURRENT_DESKTOP names \"%1\", which is not supported yet; "
                                         "QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture")
                                      .arg(painter)};
    }
    if (facts.hasSwaySocket) {
        return {DesktopWay::None, Tr::tr("SWAYSOCK is set, but nobody answers on it")};
    }
    return {DesktopWay::None, Tr::tr("neither SWAYSOCK nor DISPLAY is set")};
}

} // namespace quorvane
