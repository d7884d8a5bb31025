#pragma once

#include "Platform/Bus/MessageBus.h"
#include "Platform/Desktops/DesktopBackend.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace quorvane {

/// Where a desktop keeps its background in GSettings.
struct BackgroundSettings
{
    enum class Form { Path, Address };
    enum class Content {
        Followed,  ///< A name that was shown before shows what the file holds now.
        KeptByName ///< It may show what the file held when it was first read, so each picture needs a new name.
    };

    QString schema;
    QStringList pictureKeys; ///< All of them get the picture; those that a version does not have are left out.
    Form form = Form::Address;
    Content content = Content::Followed;
    QVariantMap others; ///< What else must be so for the picture to be seen, filling each screen.
};

/// A desktop that is told by XDG_CURRENT_DESKTOP and takes the background from a program of its own.
struct SessionDesktop
{
    enum class Displays { Any, OnlyX11 };

    QString title; ///< As people know it.
    DesktopBackend way = DesktopBackend::None;
    QStringList entries;         ///< What XDG_CURRENT_DESKTOP may say, in any mixture of capitals.
    QStringList painters;        ///< Names on the session bus; one of them is there while the background is drawn.
    BackgroundSettings settings; ///< Its schema is empty where the desktop keeps the background elsewhere.
    Displays displays = Displays::Any;
};

/// The known ones. Several entries of XDG_CURRENT_DESKTOP may be known, as in "Budgie:GNOME": then the first here is
/// meant.
[[nodiscard]] const QList<SessionDesktop> &sessionDesktops();

/// The desktop of a way that the entries name, or where they name none of them the last, which is the plainest.
/// Null when there is no desktop of that way.
[[nodiscard]] const SessionDesktop *sessionDesktop(DesktopBackend way, const QStringList &currentDesktops);

/// The first of the entries that names the desktop; empty when none does.
[[nodiscard]] QString namingEntry(const SessionDesktop &desktop, const QStringList &currentDesktops);

/// Whether what draws the desktop's background is on the bus.
[[nodiscard]] Result<> findPainter(const SessionDesktop &desktop, const MessageBus &bus);

} // namespace quorvane
