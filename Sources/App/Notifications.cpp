#include "App/Notifications.h"

#include "Platform/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QUrl>
#include <QVariantMap>

namespace quorvane {

namespace {

constexpr uchar kLowUrgency = 0;
constexpr int kDaemonDecidesHowLong = -1;

} // namespace

Notifications::Notifications(SessionBus &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{
    connect(&m_bus, &SessionBus::disconnected, this, [this] { m_last = 0; });
}

void Notifications::show(const Notice &notice)
{
    if (!m_bus.isConnected()) {
        return;
    }
    QVariantMap hints{{QStringLiteral("urgency"), QVariant::fromValue(kLowUrgency)},
                      {QStringLiteral("desktop-entry"), QStringLiteral("app.quorvane.Quorvane")},
                      {QStringLiteral("suppress-sound"), true}};
    if (!notice.picture.isEmpty()) {
        hints.insert(QStringLiteral("image-path"), QUrl::fromLocalFile(notice.picture).toString(QUrl::FullyEncoded));
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    // The text may be read as markup.
    call.setArguments({QStringLiteral("Quorvane"), m_last, QStringLiteral("app.quorvane.Quorvane"), notice.title,
                       notice.text.toHtmlEscaped(), QStringList(), hints, kDaemonDecidesHowLong});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.connection().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<quint32> reply = *watcher;
        m_last = reply.isValid() ? reply.value() : 0;
        watcher->deleteLater();
    });
}

} // namespace quorvane
