#include "Platform/Desktops/DesktopPicturePortal.h"

#include "Platform/Bus/BusClient.h"
#include "Platform/Bus/PortalRequest.h"
#include "Platform/Pictures/PictureFile.h"
#include "Platform/Threads/TimeLimit.h"

#include <QCoreApplication>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
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

const QString kPortal = u"org.freedesktop.portal.Desktop"_s;
const QString kObject = u"/org/freedesktop/portal/desktop"_s;
const QString kInterface = u"org.freedesktop.portal.Wallpaper"_s;

/// How many of the portal's answers mean what.
constexpr uint kAccepted = 0;
constexpr uint kRefusedByUser = 1;

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
        BusClient client(busAddress);
        const QDBusMessage question =
            QDBusMessage::createMethodCall(kPortal, kObject, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
        return client.call(question, {kInterface, u"version"_s}, QDeadlineTimer(limit)).error.isEmpty();
    });
    return has.value_or(false);
}

QList<Screen> DesktopPicturePortal::screens()
{
    return m_display.screens(m_limit);
}

Result<> DesktopPicturePortal::setPicture(const QString &path, const QList<Screen> & /*screens*/)
{
    const PictureFile checked = readPicture(path, kCheckSize);
    if (!checked.error.isEmpty()) {
        return Failure{checked.error};
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return Failure{Tr::tr("The picture cannot be read: %1").arg(file.errorString())};
    }
    // Connecting has no limit of its own, and this thread has to wait for the user below.
    auto connected = withinLimit(
        m_limit, [address = m_busAddress](const std::stop_token &) { return std::make_shared<BusClient>(address); });
    if (!connected) {
        return Failure{Tr::tr("The session bus does not answer")};
    }
    BusClient &client = **connected;
    PortalRequest request(client);
    const QVariantMap options{
        {u"handle_token"_s, request.token()}, {u"show-preview"_s, false}, {u"set-on"_s, u"background"_s}};
    const QDBusMessage question = QDBusMessage::createMethodCall(kPortal, kObject, kInterface, u"SetWallpaperFile"_s);
    const QVariantList arguments{QString(), QVariant::fromValue(QDBusUnixFileDescriptor(file.handle())), options};
    const auto isAsking = [this] {
        if (asking) {
            asking(Tr::tr("Waiting for your answer to the desktop's question about the background"));
        }
    };
    const PortalRequest::Outcome outcome = request.ask(question, arguments, m_limit, isAsking, m_stop.get_token());
    if (!outcome.response) {
        return Failure{outcome.error};
    }
    if (*outcome.response == kAccepted) {
        return kDone;
    }
    return Failure{*outcome.response == kRefusedByUser ? Tr::tr("You did not allow it to set the background")
                                                       : Tr::tr("The desktop's portal refused the picture")};
}

} // namespace quorvane
