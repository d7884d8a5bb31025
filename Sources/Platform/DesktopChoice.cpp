#include "Platform/DesktopChoice.h"

#include "Platform/SessionDesktops.h"

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
    DesktopWay way = DesktopWay::None;
};

constexpr std::array kKnownNames{
    KnownName{QLatin1String("gnome"), DesktopWay::Gnome},
    KnownName{QLatin1String("plasma"), DesktopWay::Plasma},
    KnownName{QLatin1String("xfce"), DesktopWay::Xfce},
    KnownName{QLatin1String("mate"), DesktopWay::Mate},
    KnownName{QLatin1String("cinnamon"), DesktopWay::Cinnamon},
    KnownName{QLatin1String("lxqt"), DesktopWay::Lxqt},
    KnownName{QLatin1String("sway"), DesktopWay::Sway},
    KnownName{QLatin1String("hyprland"), DesktopWay::Hyprland},
    KnownName{QLatin1String("layer-shell"), DesktopWay::LayerShell},
    KnownName{QLatin1String("x11"), DesktopWay::X11},
    KnownName{QLatin1String("portal"), DesktopWay::Portal},
    KnownName{QLatin1String("command"), DesktopWay::Command},
};

/// Entries of XDG_CURRENT_DESKTOP whose desktops cover the X11 root window with a window of their own, and that there
/// is no way to yet.
constexpr std::array kPaintersOverRoot{
    QLatin1String("LXDE"),
    QLatin1String("Deepin"),
    QLatin1String("DDE"),
    QLatin1String("COSMIC"),
};

/// What keeps a way that was asked for by name from working; empty where nothing does.
QString obstacle(DesktopWay way, const DesktopFacts &facts)
{
    switch (way) {
    case DesktopWay::Hyprland:
        return facts.hasHyprland ? QString() : Tr::tr("HYPRLAND_INSTANCE_SIGNATURE is not set");
    case DesktopWay::LayerShell:
        if (!facts.hasWayland) {
            return Tr::tr("WAYLAND_DISPLAY is not set");
        }
        return facts.hasLayerShell ? QString() : Tr::tr("the compositor does not offer zwlr_layer_shell_v1");
    case DesktopWay::Portal:
        return facts.portalAnswers ? QString() : Tr::tr("no portal of this session sets wallpapers");
    default:
        return {};
    }
}

/// What is missing for the desktop to take a picture; empty when it is there.
QString whatIsMissing(const SessionDesktop &desktop, const DesktopFacts &facts)
{
    if (!desktop.settings.schema.isEmpty() && !facts.schemas.contains(desktop.settings.schema)) {
        return Tr::tr("its settings \"%1\" are not installed").arg(desktop.settings.schema);
    }
    if (desktop.displays == SessionDesktop::Displays::OnlyX11 && !facts.hasX11) {
        return Tr::tr("DISPLAY is not set");
    }
    const bool isThere = std::any_of(desktop.painters.begin(), desktop.painters.end(),
                                     [&](const QString &painter) { return facts.busNames.contains(painter); });
    return isThere ? QString() : Tr::tr("%1 is not on the session bus").arg(desktop.painters.join(Tr::tr(" or ")));
}

/// Whether only what is there already shall be chosen.
enum class Confirmed { Yes, No };

std::optional<DesktopChoice> namedDesktop(const DesktopFacts &facts, Confirmed confirmed)
{
    for (const SessionDesktop &desktop : sessionDesktops()) {
        const QString entry = namingEntry(desktop, facts.currentDesktops);
        const bool canBeHere = desktop.displays == SessionDesktop::Displays::Any || !facts.hasWayland;
        if (entry.isEmpty() || !canBeHere) {
            continue;
        }
        const QString missing = whatIsMissing(desktop, facts);
        if (missing.isEmpty()) {
            return DesktopChoice{desktop.way,
                                 Tr::tr("XDG_CURRENT_DESKTOP names \"%1\", and it draws the background").arg(entry)};
        }
        if (confirmed == Confirmed::No) {
            return DesktopChoice{desktop.way, Tr::tr("XDG_CURRENT_DESKTOP names \"%1\", but %2").arg(entry, missing)};
        }
    }
    return std::nullopt;
}

/// The ways that the session itself shows to be there, the first that fits.
std::optional<DesktopChoice> runningDesktop(const DesktopFacts &facts)
{
    if (facts.isSandboxed && facts.portalAnswers) {
        return DesktopChoice{DesktopWay::Portal, Tr::tr("this is a sandbox, and its portal sets wallpapers")};
    }
    if (auto named = namedDesktop(facts, Confirmed::Yes)) {
        return named;
    }
    if (facts.swayAnswers) {
        return DesktopChoice{DesktopWay::Sway, Tr::tr("sway answers on SWAYSOCK")};
    }
    if (facts.hyprlandAnswers) {
        return DesktopChoice{DesktopWay::Hyprland, Tr::tr("Hyprland answers on its socket")};
    }
    // Before anything else: what else could be set would lie behind the desktop as soon as that runs.
    if (auto named = namedDesktop(facts, Confirmed::No)) {
        return named;
    }
    if (facts.hasLayerShell) {
        return DesktopChoice{DesktopWay::LayerShell, Tr::tr("the compositor offers zwlr_layer_shell_v1; "
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
    const SessionDesktop *desktop = sessionDesktop(known->way, facts.currentDesktops);
    const QString problem = desktop != nullptr ? whatIsMissing(*desktop, facts) : obstacle(known->way, facts);
    return {known->way, problem.isEmpty() ? Tr::tr("QUORVANE_DESKTOP is \"%1\"").arg(facts.wanted)
                                          : Tr::tr("QUORVANE_DESKTOP is \"%1\", but %2").arg(facts.wanted, problem)};
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

QString nameOf(DesktopWay way)
{
    const auto *const known = std::find_if(kKnownNames.begin(), kKnownNames.end(), [&](const KnownName &entry) {
        return entry.way == way && way != DesktopWay::None;
    });
    return known == kKnownNames.end() ? QString() : QString(known->name);
}

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
        return {DesktopWay::Portal, Tr::tr("nothing else is known here, and the session's portal sets wallpapers")};
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
