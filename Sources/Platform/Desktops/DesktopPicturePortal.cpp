#include "Platform/Desktops/DesktopPicturePortal.h"

#include "Platform/Bus/MessageBus.h"
#include "Platform/Bus/PortalRequest.h"
#include "Platform/Files/WholeFile.h"
#include "Platform/Pictures/PictureFile.h"
#include "Platform/Threads/TimeLimit.h"

#include <QCoreApplication>
#include <QDBusUnixFileDescriptor>
#include <QFile>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPicturePortal)
};

/// Enough to know that a picture decodes to its end.
constexpr QSize kCheckSize(256, 256);

const QString kInterface = u"org.freedesktop.portal.Wallpaper"_s;

} // namespace

DesktopPicturePortal::DesktopPicturePortal(QString busAddress, SessionDisplay display, QString reason,
                                           std::chrono::milliseconds limit)
    : m_busAddress(std::move(busAddress))
    , m_display(std::move(display))
    , m_reason(std::move(reason))
    , m_limit(limit)
{
}

bool DesktopPicturePortal::answers(const QString &busAddress, std::chrono::milliseconds limit)
{
    if (busAddress.isEmpty()) {
        return false;
    }
    const auto has = withinLimit(limit, [busAddress, limit](const std::stop_token &) {
        return hasPortal(MessageBus(busAddress, QDeadlineTimer(limit)), kInterface);
    });
    return has.value_or(false);
}

QList<Screen> DesktopPicturePortal::screens()
{
    return m_display.screens(m_limit);
}

Result<> DesktopPicturePortal::setPicture(const QString &path, const QList<Screen> & /*screens*/)
{
    if (const Result<PictureFile> checked = readPicture(path, kCheckSize); !checked) {
        return checked.failure();
    }
    QFile file;
    if (const Result<> opened = openRegularFile(path, kLargestPictureBytes, &file); !opened) {
        return Failure{Tr::tr("The picture cannot be read: %1").arg(opened.failure().words)};
    }
    // Connecting has no limit of its own, and this thread has to wait for the user below.
    const auto bus =
        withinLimit(m_limit, [address = m_busAddress](const std::stop_token &) { return MessageBus(address); });
    if (!bus) {
        return Failure{Tr::tr("The session bus does not answer")};
    }
    PortalRequest request(*bus);
    const QVariantMap options{
        {u"handle_token"_s, request.token()}, {u"show-preview"_s, false}, {u"set-on"_s, u"background"_s}};
    const QVariantList arguments{QString(), QVariant::fromValue(QDBusUnixFileDescriptor(file.handle())), options};
    const auto isAsking = [this] {
        if (asking) {
            asking(Tr::tr("Waiting for your answer to the desktop's question about the background"));
        }
    };
    using Response = PortalRequest::Answer::Response;
    const auto answer =
        request.ask(kInterface, u"SetWallpaperFile"_s, arguments, {m_limit, isAsking, m_stop.get_token()});
    if (!answer) {
        return answer.failure();
    }
    if (answer->response == Response::Done) {
        return kDone;
    }
    return Failure{answer->response == Response::RefusedByUser ? Tr::tr("You did not allow it to set the background")
                                                               : Tr::tr("The desktop's portal refused the picture")};
}

} // namespace quorvane
