#include "App/Tray/Notifications.h"

#include "Platform/Bus/SessionBus.h"
#include "Platform/Pictures/PictureFile.h"
#include "Platform/PrintableText.h"
#include "Platform/Threads/Worker.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace quorvane {

/// (iiibiiay): width, height, bytes in a row, whether there is transparency, bits of a sample, samples of a pixel, and
/// the pixels from top left.
struct DBusPicture
{
    QImage image; ///< RGBA8888
};

static QDBusArgument &operator<<(QDBusArgument &argument, const DBusPicture &picture)
{
    constexpr int kBits = 8;
    constexpr int kSamples = 4;
    const QImage &image = picture.image;
    const QByteArray pixels(reinterpret_cast<const char *>(image.constBits()), image.sizeInBytes());
    argument.beginStructure();
    argument << image.width() << image.height() << static_cast<int>(image.bytesPerLine()) << true << kBits << kSamples
             << pixels;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, DBusPicture & /*picture*/)
{
    return argument; // Only ever sent.
}

namespace {

constexpr uchar kLowUrgency = 0;
constexpr int kDaemonDecidesHowLong = -1;
constexpr int kPatienceMilliseconds = 1000;
constexpr QSize kThumbnail(192, 192); // Daemons show less.

QDBusMessage methodOfDaemon(const QString &method)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s,
                                          u"org.freedesktop.Notifications"_s, method);
}

} // namespace

} // namespace quorvane

Q_DECLARE_METATYPE(quorvane::DBusPicture)

namespace quorvane {

Notifications::Notifications(SessionBus &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{
    qDBusRegisterMetaType<DBusPicture>();
    connect(&m_bus, &SessionBus::disconnected, this, [this] { m_last = 0; });
}

void Notifications::show(const Notice &notice)
{
    ++m_asked;
    if (notice.picture.isEmpty()) {
        send(notice, {});
    } else {
        m_scope.start(showing(notice, m_asked));
    }
}

QCoro::Task<> Notifications::showing(Notice notice, quint64 number)
{
    auto decode = [path = notice.picture] {
        const Result<PictureFile> picture = readPicture(path, kThumbnail);
        return picture ? picture->image.convertToFormat(QImage::Format_RGBA8888) : QImage();
    };
    const QImage thumbnail = co_await onWorker(std::move(decode));
    if (number == m_asked) { // Else there is news already.
        send(notice, thumbnail);
    }
}

void Notifications::send(const Notice &notice, const QImage &thumbnail)
{
    if (!m_bus.isConnected()) {
        return;
    }
    // One that does not answer in time is taken for one that reads markup, as most do.
    QDBusMessage question = methodOfDaemon(u"GetCapabilities"_s);
    auto *asked = new QDBusPendingCallWatcher(m_bus.connection().asyncCall(question, kPatienceMilliseconds), this);
    connect(asked, &QDBusPendingCallWatcher::finished, this, [this, asked, notice, thumbnail] {
        const QDBusPendingReply<QStringList> capabilities = *asked;
        asked->deleteLater();
        const bool readsMarkup = !capabilities.isValid() || capabilities.value().contains("body-markup"_L1);
        deliver(notice, readsMarkup ? notice.text.toHtmlEscaped() : notice.text, thumbnail);
    });
}

void Notifications::deliver(const Notice &notice, const QString &text, const QImage &thumbnail)
{
    if (!m_bus.isConnected()) {
        return;
    }
    QVariantMap hints{{u"urgency"_s, QVariant::fromValue(kLowUrgency)},
                      {u"desktop-entry"_s, u"app.quorvane.Quorvane"_s},
                      {u"suppress-sound"_s, true}};
    if (!thumbnail.isNull()) {
        hints.insert(u"image-data"_s, QVariant::fromValue(DBusPicture{thumbnail}));
    }
    QDBusMessage call = methodOfDaemon(u"Notify"_s);
    call.setArguments({u"Quorvane"_s, m_last, u"app.quorvane.Quorvane"_s, withVisibleNulls(notice.title),
                       withVisibleNulls(text), QStringList(), hints, kDaemonDecidesHowLong});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.connection().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<quint32> reply = *watcher;
        m_last = reply.isValid() ? reply.value() : 0;
        watcher->deleteLater();
    });
}

} // namespace quorvane
