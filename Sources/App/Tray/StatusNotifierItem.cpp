#include "App/Tray/StatusNotifierItem.h"

#include "App/Tray/DBusMenu.h"
#include "Platform/Bus/SessionBus.h"

#include "statusnotifieritemadaptor.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString itemPath()
{
    return u"/StatusNotifierItem"_s;
}

QString watcherName()
{
    return u"org.kde.StatusNotifierWatcher"_s;
}

QString watcherPath()
{
    return u"/StatusNotifierWatcher"_s;
}

QList<DBusPixmap> pixmapsOf(const MenuBarIcon &icon)
{
    QList<DBusPixmap> pixmaps;
    for (const QImage &image : icon.images) {
        QByteArray pixels(image.sizeInBytes(), Qt::Uninitialized);
        qToBigEndian<quint32>(image.constBits(), image.sizeInBytes() / qsizetype{sizeof(quint32)}, pixels.data());
        pixmaps.append({image.width(), image.height(), pixels});
    }
    return pixmaps;
}

} // namespace

StatusNotifierItem::StatusNotifierItem(SessionBus &bus, const MenuBarIcon &icon, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_adaptor(new StatusNotifierItemAdaptor(this))
    , m_isShown(bus.isConnected())
{
    registerStatusNotifierTypes();
    // The adaptor reads them from here; what is not here is empty.
    setProperty("Category", u"ApplicationStatus"_s);
    setProperty("Id", u"app.quorvane.Quorvane"_s);
    setProperty("Title", u"Quorvane"_s);
    setProperty("Status", u"Active"_s);
    setProperty("IconName", icon.name);
    setProperty("IconPixmap", QVariant::fromValue(pixmapsOf(icon)));
    setProperty("ItemIsMenu", true);
    setProperty("Menu", QVariant::fromValue(QDBusObjectPath(DBusMenu::path())));
    publishToolTip();
    connect(&m_bus, &SessionBus::connected, this, &StatusNotifierItem::attach);
    connect(&m_bus, &SessionBus::disconnected, this, [this] {
        m_watcher.reset();
        setShown(false);
    });
    attach();
}

void StatusNotifierItem::attach()
{
    if (!m_bus.isConnected()) {
        return;
    }
    QDBusConnection connection = m_bus.connection();
    connection.registerObject(itemPath(), this, QDBusConnection::ExportAdaptors);
    m_watcher = std::make_unique<QDBusServiceWatcher>(watcherName(), connection);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceRegistered, this, &StatusNotifierItem::registerWithWatcher);
    connect(m_watcher.get(), &QDBusServiceWatcher::serviceUnregistered, this, [this] { setShown(false); });
    for (const char *signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
        connection.connect(watcherName(), watcherPath(), watcherName(), QLatin1String(signal), this,
                           SLOT(askForHost()));
    }
    registerWithWatcher();
}

void StatusNotifierItem::registerWithWatcher()
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(watcherName(), watcherPath(), watcherName(), u"RegisterStatusNotifierItem"_s);
    call.setArguments({m_bus.connection().baseService()});
    call.setAutoStartService(false);
    m_bus.connection().send(call);
    askForHost();
}

void StatusNotifierItem::askForHost()
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(watcherName(), watcherPath(), u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call.setArguments({watcherName(), u"IsStatusNotifierHostRegistered"_s});
    call.setAutoStartService(false);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.connection().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        setShown(reply.isValid() && reply.value().variant().toBool());
        watcher->deleteLater();
    });
}

void StatusNotifierItem::setShown(bool isShown)
{
    if (m_isShown != isShown) {
        m_isShown = isShown;
        Q_EMIT isShownChanged();
    }
}

void StatusNotifierItem::setToolTip(const QString &text)
{
    if (m_toolTip == text) {
        return;
    }
    m_toolTip = text;
    publishToolTip();
    Q_EMIT m_adaptor->NewToolTip();
}

void StatusNotifierItem::publishToolTip()
{
    setProperty("ToolTip", QVariant::fromValue(DBusToolTip{{}, {}, u"Quorvane"_s, m_toolTip}));
}

void StatusNotifierItem::Activate(int /*x*/, int /*y*/)
{
    Q_EMIT activated();
}

// The panel shows the menu by itself, and there is nothing to scroll; but panels take an error for a broken item.
void StatusNotifierItem::SecondaryActivate(int /*x*/, int /*y*/) const {}
void StatusNotifierItem::ContextMenu(int /*x*/, int /*y*/) const {}
void StatusNotifierItem::Scroll(int /*delta*/, const QString & /*orientation*/) const {}

} // namespace quorvane
