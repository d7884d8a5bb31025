#include "Platform/DesktopChoice.h"

#include "Platform/SessionDesktops.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quorvane {

namespace {

struct KnownName
{
    QLatin1String name;
    DesktopWay way = DesktopWay::None; ///< None: a name that is reserved for a way that does not exist yet.
};

constexpr std::array kKnownNames{
    KnownName{QLatin1String("gnome"), DesktopWay::Gnome},
    KnownName{QLatin1String("plasma"), DesktopWay::None},
    KnownName{QLatin1String("xfce"), DesktopWay::Xfce},
    KnownName{QLatin1String("mate"), DesktopWay::Mate},
    KnownName{QLatin1String("cinnamon"), DesktopWay::Cinnamon},
    KnownName{QLatin1String("lxqt"), DesktopWay::Lxqt},
    KnownName{QLatin1String("sway"), DesktopWay::Sway},
    KnownName{QLatin1String("hyprland"), DesktopWay::None},
    KnownName{QLatin1String("layer-shell"), DesktopWay::None},
    KnownName{QLatin1String("x11"), DesktopWay::X11},
    KnownName{QLatin1String("portal"), DesktopWay::None},
    KnownName{QLatin1String("command"), DesktopWay::Command},
};

/// Entries of XDG_CURRENT_DESKTOP whose desktops cover the X11 root window with a window of their own, and that there
/// is no way to yet.
constexpr std::array kPaintersOverRoot{
    QLatin1String("KDE"), QLatin1String("LXDE"), QLatin1String("Deepin"), QLatin1String("DDE"), QLatin1String("COSMIC"),
};

/// What is missing for the desktop to take a picture; empty when it is there.
QString whatIsMissing(const SessionDesktop &desktop, const DesktopFacts &facts)
{
    if (!desktop.settings.schema.isEmpty() && !facts.schemas.contains(desktop.settings.schema)) {
        return QStringLiteral("its settings \"%1\" are not installed").arg(desktop.settings.schema);
    }
    if (desktop.displays == SessionDesktop::Displays::OnlyX11 && !facts.hasX11) {
        return QStringLiteral("DISPLAY is not set");
    }
    const bool isThere = std::any_of(desktop.painters.begin(), desktop.painters.end(),
                                     [&](const QString &painter) { return facts.busNames.contains(painter); });
    return isThere ? QString()
                   : QStringLiteral("%1 is not on the session bus").arg(desktop.painters.join(QStringLiteral(" or ")));
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
        const QString named = QStringLiteral("XDG_CURRENT_DESKTOP names \"%1\"").arg(entry);
        const QString missing = whatIsMissing(desktop, facts);
        if (missing.isEmpty()) {
            return DesktopChoice{desktop.way, named + QStringLiteral(", and it draws the background")};
        }
        if (confirmed == Confirmed::No) {
            return DesktopChoice{desktop.way, named + QStringLiteral(", but ") + missing};
        }
    }
    return std::nullopt;
}

DesktopChoice wantedDesktop(const DesktopFacts &facts)
{
    const QString given = QStringLiteral("QUORVANE_DESKTOP is \"%1\"").arg(facts.wanted);
    const auto *const known = std::find_if(kKnownNames.begin(), kKnownNames.end(),
                                           [&](const KnownName &entry) { return entry.name == facts.wanted; });
    if (known == kKnownNames.end()) {
        QStringList names;
        for (const KnownName &entry : kKnownNames) {
            names.append(entry.name);
        }
        return {DesktopWay::None, given + QStringLiteral(", which is none of ") + names.join(QLatin1String(", "))};
    }
    if (known->way == DesktopWay::None) {
        return {DesktopWay::None, given + QStringLiteral(", which this version does not support yet")};
    }
    if (known->way == DesktopWay::Command && facts.command.isEmpty()) {
        return {DesktopWay::None, given + QStringLiteral(", but QUORVANE_WALLPAPER_COMMAND is not set")};
    }
    if (known->way == DesktopWay::Sway && !facts.hasSwaySocket) {
        return {DesktopWay::Sway, given + QStringLiteral(", but SWAYSOCK is not set")};
    }
    if (known->way == DesktopWay::X11 && !facts.hasX11) {
        return {DesktopWay::X11, given + QStringLiteral(", but DISPLAY is not set")};
    }
    if (const SessionDesktop *desktop = sessionDesktop(known->way, facts.currentDesktops)) {
        const QString missing = whatIsMissing(*desktop, facts);
        return {known->way, missing.isEmpty() ? given : given + QStringLiteral(", but ") + missing};
    }
    return {known->way, given};
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
        return {DesktopWay::Command, QStringLiteral("QUORVANE_WALLPAPER_COMMAND is set")};
    }
    if (const auto choice = namedDesktop(facts, Confirmed::Yes)) {
        return *choice;
    }
    if (facts.swayAnswers) {
        return {DesktopWay::Sway, QStringLiteral("sway answers on SWAYSOCK")};
    }
    if (const auto choice = namedDesktop(facts, Confirmed::No)) {
        return *choice;
    }
    if (facts.hasWayland) {
        return {DesktopWay::None,
                QStringLiteral("this Wayland desktop is not supported yet; "
                               "QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture")};
    }
    if (facts.hasX11) {
        const QString painter = painterOverRoot(facts.currentDesktops);
        if (painter.isEmpty()) {
            return {DesktopWay::X11, QStringLiteral("DISPLAY is set and no desktop paints over the X11 root window")};
        }
        return {DesktopWay::None, QStringLiteral("XDG_CURRENT_DESKTOP names \"%1\", which is not supported yet; "
                                                 "QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture")
                                      .arg(painter)};
    }
    if (facts.hasSwaySocket) {
        return {DesktopWay::None, QStringLiteral("SWAYSOCK is set, but nobody answers on it")};
    }
    return {DesktopWay::None, QStringLiteral("neither SWAYSOCK nor DISPLAY is set")};
}

} // namespace quorvane
