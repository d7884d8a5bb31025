#include "Platform/Desktops/Choice/DesktopChoice.h"

#include "Platform/Desktops/SessionDesktops.h"
#include "Platform/Failure.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

// The idea: what a session says of itself and what is really there are two things. XDG_CURRENT_DESKTOP is set by
// whoever started the session and survives into other ones; a socket's variable outlives its compositor; a name on the
// bus may be there before the desktop draws. So the facts are collected first, without judging them, and one function
// without any input besides them decides. That makes every rule a row of a table in its test, and "quorvane status" can
// say which fact decided.
//
// The order: what the user asked for is obeyed or refused, never replaced, because a silent replacement would look like
// a picture that was not set. Then whoever answers and is named; then whoever answers; then who is only named, because
// a program that starts with the session may be there before the desktop. What draws over the root window of X11 is no
// bare X11, since a success that nobody sees is the worst of all.
//
// Not taken: trying one way after the other until one reports success. Most desktops report success for a picture that
// they could not show, and a wrong attempt leaves its traces in another desktop's settings.

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopChoice)
};

struct KnownName
{
    QLatin1String name;
    DesktopBackend way = DesktopBackend::None;
};

constexpr std::array kKnownNames{
    KnownName{"gnome"_L1, DesktopBackend::Gnome},
    KnownName{"plasma"_L1, DesktopBackend::Plasma},
    KnownName{"xfce"_L1, DesktopBackend::Xfce},
    KnownName{"mate"_L1, DesktopBackend::Mate},
    KnownName{"cinnamon"_L1, DesktopBackend::Cinnamon},
    KnownName{"lxqt"_L1, DesktopBackend::Lxqt},
    KnownName{"sway"_L1, DesktopBackend::Sway},
    KnownName{"hyprland"_L1, DesktopBackend::Hyprland},
    KnownName{"layer-shell"_L1, DesktopBackend::LayerShell},
    KnownName{"x11"_L1, DesktopBackend::X11},
    KnownName{"portal"_L1, DesktopBackend::Portal},
    KnownName{"command"_L1, DesktopBackend::Command},
};

/// Entries of XDG_CURRENT_DESKTOP whose desktops cover the X11 root window with a window of their own, and that there
/// is no way to yet.
constexpr std::array kPaintersOverRoot{
    "LXDE"_L1,
    "Deepin"_L1,
    "DDE"_L1,
    "COSMIC"_L1,
};

/// What something that is not so comes to.
Result<> unless(bool isSo, const QString &words)
{
    return isSo ? kDone : Failure{words};
}

/// Fails where something keeps a way that was asked for by name from working.
Result<> canWork(DesktopBackend way, const DesktopFacts &facts)
{
    switch (way) {
    case DesktopBackend::Hyprland:
        return unless(facts.hasHyprland, Tr::tr("HYPRLAND_INSTANCE_SIGNATURE is not set"));
    case DesktopBackend::LayerShell:
        if (!facts.hasWayland) {
            return Failure{Tr::tr("WAYLAND_DISPLAY is not set")};
        }
        return unless(facts.hasLayerShell, Tr::tr("the compositor does not offer zwlr_layer_shell_v1"));
    case DesktopBackend::Portal:
        return unless(facts.portalAnswers, Tr::tr("no portal of this session sets wallpapers"));
    default:
        return kDone;
    }
}

/// Fails where something is missing for the desktop to take a picture.
Result<> isComplete(const SessionDesktop &desktop, const DesktopFacts &facts)
{
    if (!desktop.settings.schema.isEmpty() && !facts.schemas.contains(desktop.settings.schema)) {
        return Failure{Tr::tr("its settings \"%1\" are not installed").arg(desktop.settings.schema)};
    }
    if (desktop.displays == SessionDesktop::Displays::OnlyX11 && !facts.hasX11) {
        return Failure{Tr::tr("DISPLAY is not set")};
    }
    const bool isThere = std::any_of(desktop.painters.begin(), desktop.painters.end(),
                                     [&](const QString &painter) { return facts.busNames.contains(painter); });
    return unless(isThere, Tr::tr("%1 is not on the session bus").arg(desktop.painters.join(Tr::tr(" or "))));
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
        const Result<> complete = isComplete(desktop, facts);
        if (complete) {
            return DesktopChoice{desktop.way,
                                 Tr::tr("XDG_CURRENT_DESKTOP names \"%1\", and it draws the background").arg(entry)};
        }
        if (confirmed == Confirmed::No) {
            return DesktopChoice{
                desktop.way, Tr::tr("XDG_CURRENT_DESKTOP names \"%1\", but %2").arg(entry, complete.failure().words)};
        }
    }
    return std::nullopt;
}

/// The ways that the session itself shows to be there, the first that fits.
std::optional<DesktopChoice> runningDesktop(const DesktopFacts &facts)
{
    if (facts.isSandboxed && facts.portalAnswers) {
        return DesktopChoice{DesktopBackend::Portal, Tr::tr("this is a sandbox, and its portal sets wallpapers")};
    }
    if (auto named = namedDesktop(facts, Confirmed::Yes)) {
        return named;
    }
    if (facts.swayAnswers) {
        return DesktopChoice{DesktopBackend::Sway, Tr::tr("sway answers on SWAYSOCK")};
    }
    if (facts.hyprlandAnswers) {
        return DesktopChoice{DesktopBackend::Hyprland, Tr::tr("Hyprland answers on its socket")};
    }
    // Before anything else: what else could be set would lie behind the desktop as soon as that runs.
    if (auto named = namedDesktop(facts, Confirmed::No)) {
        return named;
    }
    if (facts.hasLayerShell) {
        return DesktopChoice{DesktopBackend::LayerShell, Tr::tr("the compositor offers zwlr_layer_shell_v1; "
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
        return {DesktopBackend::None,
                Tr::tr("QUORVANE_DESKTOP is \"%1\", which is none of %2").arg(facts.wanted, names.join(", "_L1))};
    }
    if (known->way == DesktopBackend::Command && facts.command.isEmpty()) {
        return {DesktopBackend::None,
                Tr::tr("QUORVANE_DESKTOP is \"%1\", but QUORVANE_WALLPAPER_COMMAND is not set").arg(facts.wanted)};
    }
    if (known->way == DesktopBackend::Sway && !facts.hasSwaySocket) {
        return {DesktopBackend::Sway, Tr::tr("QUORVANE_DESKTOP is \"%1\", but SWAYSOCK is not set").arg(facts.wanted)};
    }
    if (known->way == DesktopBackend::X11 && !facts.hasX11) {
        return {DesktopBackend::X11, Tr::tr("QUORVANE_DESKTOP is \"%1\", but DISPLAY is not set").arg(facts.wanted)};
    }
    const SessionDesktop *desktop = sessionDesktop(known->way, facts.currentDesktops);
    if (const Result<> usable = desktop != nullptr ? isComplete(*desktop, facts) : canWork(known->way, facts);
        !usable) {
        return {known->way, Tr::tr("QUORVANE_DESKTOP is \"%1\", but %2").arg(facts.wanted, usable.failure().words)};
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

QString nameOf(DesktopBackend way)
{
    const auto *const known = std::find_if(kKnownNames.begin(), kKnownNames.end(), [&](const KnownName &entry) {
        return entry.way == way && way != DesktopBackend::None;
    });
    return known == kKnownNames.end() ? QString() : QString(known->name);
}

DesktopChoice chooseDesktop(const DesktopFacts &facts)
{
    if (!facts.wanted.isEmpty()) {
        return wantedDesktop(facts);
    }
    if (!facts.command.isEmpty()) {
        return {DesktopBackend::Command, Tr::tr("QUORVANE_WALLPAPER_COMMAND is set")};
    }
    if (std::optional<DesktopChoice> running = runningDesktop(facts)) {
        return *running;
    }
    const QString painter = painterOverRoot(facts.currentDesktops);
    if (facts.hasX11 && !facts.hasWayland && painter.isEmpty()) {
        return {DesktopBackend::X11, Tr::tr("DISPLAY is set and no desktop paints over the X11 root window")};
    }
    if (facts.portalAnswers) {
        return {DesktopBackend::Portal, Tr::tr("nothing else is known here, and the session's portal sets wallpapers")};
    }
    if (facts.hasWayland) {
        return {DesktopBackend::None, Tr::tr("this Wayland desktop is not supported yet; "
                                             "QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture")};
    }
    if (facts.hasX11) {
        return {DesktopBackend::None, Tr::tr("XDG_CURRENT_DESKTOP names \"%1\", which is not supported yet; "
                                             "QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture")
                                          .arg(painter)};
    }
    if (facts.hasSwaySocket) {
        return {DesktopBackend::None, Tr::tr("SWAYSOCK is set, but nobody answers on it")};
    }
    return {DesktopBackend::None, Tr::tr("neither SWAYSOCK nor DISPLAY is set")};
}

} // namespace quorvane
