#include "App/Tray/StatusNotifierItem.h"

#include "App/Tray/DBusMenu.h"
#include "Platform/Bus/PropertiesCall.h"
#include "Platform/Bus/SessionBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace quorvane {

/// (iiay): width, height, and the pixels from top left, each as alpha, red, green, blue.
struct DBusPixmap
{
    int width;
    int height;
    QByteArray pixels;
};

/// (sa(iiay)ss)
struct DBusToolTip
{
    QString iconName;
    QList<DBusPixmap> icon;
    QString title;
    QString text;
};

static QDBusArgument &operator<<(QDBusArgument &argument, const DBusPixmap &pixmap)
{
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.pixels;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, DBusPixmap &pixmap)
{
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.pixels;
    argument.endStructure();
    return argument;
}

static QDBusArgument &operator<<(QDBusArgument &argument, const DBusToolTip &toolTip)
{
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.icon << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, DBusToolTip &toolTip)
{
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.icon >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument;
}

namespace {

QString itemPath()
{
    return u"/StatusNotifierItem"_s;
}

QString itemInterface()
{
    return u"org.kde.StatusNotifierItem"_s;
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

} // namespace quorvane

Q_DECLARE_METATYPE(quorvane::DBusPixmap)
Q_DECLARE_METATYPE(quorvane::DBusToolTip)

namespace quorvane {

StatusNotifierItem::StatusNotifierItem(SessionBus &bus, MenuBarIcon icon, QObject *parent)
    : QDBusVirtualObject(parent)
    , m_bus(bus)
    , m_icon(std::move(icon))
    , m_isShown(bus.isConnected())
{
    qDBusRegisterMetaType<DBusPixmap>();
    qDBusRegisterMetaType<QList<DBusPixmap>>();
    qDBusRegisterMetaType<DBusToolTip>();
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
    connection.registerVirtualObject(itemPath(), this);
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
    if (m_bus.isConnected()) {
        m_bus.connection().send(QDBusMessage::createSignal(itemPath(), itemInterface(), u"NewToolTip"_s));
    }
}

QVariantMap StatusNotifierItem::properties() const
{
    const QList<DBusPixmap> none;
    return {
        {u"Category"_s, u"ApplicationStatus"_s},
        {u"Id"_s, u"app.quorvane.Quorvane"_s},
        {u"Title"_s, u"Quorvane"_s},
        {u"Status"_s, u"Active"_s},
        {u"WindowId"_s, 0},
        {u"IconThemePath"_s, QString()},
        {u"IconName"_s, m_icon.name},
        {u"IconPixmap"_s, QVariant::fromValue(pixmapsOf(m_icon))},
        {u"OverlayIconName"_s, QString()},
        {u"OverlayIconPixmap"_s, QVariant::fromValue(none)},
        {u"AttentionIconName"_s, QString()},
        {u"AttentionIconPixmap"_s, QVariant::fromValue(none)},
        {u"AttentionMovieName"_s, QString()},
        {u"ToolTip"_s, QVariant::fromValue(DBusToolTip{{}, {}, u"Quorvane"_s, m_toolTip})},
        {u"ItemIsMenu"_s, true},
        {u"Menu"_s, QVariant::fromValue(QDBusObjectPath(DBusMenu::path()))},
    };
}

QString StatusNotifierItem::introspect(const QString & /*path*/) const
{
    return uR"xml(<interface name="org.kde.StatusNotifierItem">
<property name="Category" type="s" access="read"/><property name="Id" type="s" access="read"/>
<property name="Title" type="s" access="read"/><property name="Status" type="s" access="read"/>
<property name="WindowId" type="i" access="read"/><property name="IconThemePath" type="s" access="read"/>
<property name="IconName" type="s" access="read"/><property name="IconPixmap" type="a(iiay)" access="read"/>
<property name="OverlayIconName" type="s" access="read"/>
<property name="OverlayIconPixmap" type="a(iiay)" access="read"/>
<property name="AttentionIconName" type="s" access="read"/>
<property name="AttentionIconPixmap" type="a(iiay)" access="read"/>
<property name="AttentionMovieName" type="s" access="read"/>
<property name="ToolTip" type="(sa(iiay)ss)" access="read"/><property name="ItemIsMenu" type="b" access="read"/>
<property name="Menu" type="o" access="read"/>
<method name="Activate"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
<method name="SecondaryActivate"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
<method name="ContextMenu"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
<method name="Scroll"><arg type="i" direction="in"/><arg type="s" direction="in"/></method>
<signal name="NewToolTip"/><signal name="NewIcon"/><signal name="NewTitle"/>
<signal name="NewStatus"><arg type="s"/></signal>
</interface>)xml"_s;
}

bool StatusNotifierItem::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (const auto reply = propertiesReply(message, itemInterface(), properties())) {
        return connection.send(*reply);
    }
    const QString member = message.member();
    const bool isActivation = member == "Activate"_L1;
    if (!isActivation && member != "SecondaryActivate"_L1 && member != "ContextMenu"_L1 && member != "Scroll"_L1) {
        return false;
    }
    connection.send(message.createReply());
    if (isActivation) {
        Q_EMIT activated();
    }
    return true;
}

} // namespace quorvane
