// Of the ways to lay out one picture, version 1.2 knows over the bus only those that do not fill each screen with it,
// and it keeps what it once read under a name. A picture of the exact size of all screens, under a new name each time,
// suits every version.

#include "Platform/Desktops/DesktopPictureLxqt.h"

#include "Platform/Bus/MessageBus.h"
#include "Platform/Desktops/DesktopPictureX11.h"
#include "Platform/Desktops/SessionDesktops.h"
#include "Platform/Pictures/FillCrop.h"
#include "Platform/Pictures/HandedPicture.h"
#include "Platform/Pictures/PictureCopy.h"
#include "Platform/Pictures/PictureFile.h"
#include "Platform/Threads/TimeLimit.h"
#include "Platform/X11/X11Connection.h"

#include <QCoreApplication>
#include <QDBusVariant>
#include <QPainter>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPictureLxqt)
};

const QString kName = u"org.pcmanfm.PCManFM"_s;
const QString kPath = u"/Application"_s;
const QString kInterface = u"org.pcmanfm.Application"_s;

/// Whether LXQt lays the picture out on each screen by itself, a choice of the user's.
bool isLaidOutPerScreen()
{
    const QString file =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/pcmanfm-qt/lxqt/settings.conf"_s;
    return QSettings(file, QSettings::IniFormat).value(u"Desktop/PerScreenWallpaper"_s).toBool();
}

Result<> findDesktop(const MessageBus &bus)
{
    const SessionDesktop &lxqt = *sessionDesktop(DesktopBackend::Lxqt, {});
    if (Result<> found = findPainter(lxqt, bus); !found) {
        return found;
    }
    // The same program may run for its folder windows alone.
    const auto answer = bus.call(kName, kPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                                 {kInterface, u"desktopManagerEnabled"_s});
    if (!answer) {
        return answer.failure();
    }
    return qvariant_cast<QDBusVariant>(answer->value(0)).variant().toBool()
               ? kDone
               : Failure{Tr::tr("LXQt's file manager is told not to draw the desktop")};
}

/// The areas that the picture must fill; fails where there is no use in making one.
Result<QList<QRect>> layoutOf(const QString &busAddress, const QByteArray &display, const QDeadlineTimer &deadline)
{
    const MessageBus bus(busAddress, deadline);
    if (const Result<> painter = findDesktop(bus); !painter) {
        return painter.failure();
    }
    const X11Connection x(display);
    if (!x.isUsable()) {
        return Failure{Tr::tr("The X server cannot be reached")};
    }
    QList<QRect> areas;
    const QList<X11Connection::Monitor> monitors = x.monitors();
    for (const X11Connection::Monitor &monitor : monitors) {
        areas.append(monitor.area);
    }
    if (isLaidOutPerScreen() && !areas.isEmpty()) {
        // It stretches the picture to each screen, so it can fill them only where all have the same shape.
        const bool sameSize = std::all_of(areas.begin(), areas.end(),
                                          [&](const QRect &area) { return area.size() == areas.constFirst().size(); });
        if (!sameSize) {
            return Failure{Tr::tr("LXQt is set to one wallpaper for each monitor, which would distort the picture")};
        }
        areas = {areas.constFirst()};
    }
    return areas;
}

} // namespace

DesktopPictureLxqt::DesktopPictureLxqt(QString busAddress, QByteArray display, QString reason,
                                       std::chrono::milliseconds limit)
    : m_busAddress(std::move(busAddress))
    , m_display(std::move(display))
    , m_reason(std::move(reason))
    , m_limit(limit)
{
}

QList<Screen> DesktopPictureLxqt::screens()
{
    return DesktopPictureX11(m_display, QString(), m_limit).screens();
}

Result<> DesktopPictureLxqt::setPicture(const QString &path, const QList<Screen> & /*screens*/)
{
    const Failure silence{Tr::tr("LXQt does not answer")};
    const QDeadlineTimer asking(m_limit);
    const auto layout = withinLimit(m_limit, [=, address = m_busAddress, display = m_display](const std::stop_token &) {
        return layoutOf(address, display, asking);
    });
    if (!layout || !*layout) {
        return layout ? layout->failure() : silence;
    }
    const std::chrono::milliseconds left(asking.remainingTime()); // The time to decode is nobody's but ours.

    const Result<PictureFile> file = readPicture(path);
    if (!file) {
        return file.failure();
    }
    const Result<HandedPicture> handed = handedPicture(composed(file->image, **layout));
    if (!handed) {
        return handed.failure();
    }
    const QDeadlineTimer showing(left);
    const auto shown = withinLimit(left, [=, address = m_busAddress](const std::stop_token &stop) -> Result<> {
        const MessageBus bus(address, showing);
        if (stop.stop_requested()) {
            return silence;
        }
        const auto answer = bus.call(kName, kPath, kInterface, u"setWallpaper"_s, {handed->path, u"stretch"_s});
        return answer ? kDone : answer.failure();
    });
    if (!shown || !*shown) {
        return shown ? *shown : silence;
    }
    PictureCopy::removeAllBut(handed->path);
    return kDone;
}

QImage DesktopPictureLxqt::composed(const QImage &source, const QList<QRect> &areas)
{
    QRect everything;
    for (const QRect &area : areas) {
        everything |= area;
    }
    QImage result(everything.size(), QImage::Format_RGB32);
    if (result.isNull()) {
        return result;
    }
    result.fill(Qt::black);
    QPainter painter(&result);
    for (const QRect &area : areas) {
        painter.drawImage(area.topLeft() - everything.topLeft(), filledPicture(source, area.size()));
    }
    return result;
}

} // namespace quorvane
