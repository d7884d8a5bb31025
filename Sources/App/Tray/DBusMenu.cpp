#include "App/Tray/DBusMenu.h"

#include "Platform/Bus/PropertiesCall.h"
#include "Platform/Bus/SessionBus.h"

#include <QDBusMessage>
#include <QDBusMetaType>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kRoot = 0;
constexpr quint32 kProtocolVersion = 3;

QString menuInterface()
{
    return u"com.canonical.dbusmenu"_s;
}

/// The wire's properties of an item. An underscore would mark a mnemonic, so a real one is doubled.
QVariantMap propertiesOf(const MenuItem &item)
{
    if (item.kind == MenuItem::Kind::Divider) {
        return {{u"type"_s, u"separator"_s}};
    }
    QString label = item.text;
    label.replace('_'_L1, u"__"_s);
    QVariantMap properties{{u"label"_s, label}, {u"enabled"_s, item.isEnabled}};
    if (item.kind == MenuItem::Kind::Toggle) {
        properties.insert(u"toggle-type"_s, u"checkmark"_s);
        properties.insert(u"toggle-state"_s, item.isChecked ? 1 : 0);
    }
    return properties;
}

const QVariantMap kRootProperties{{u"children-display"_s, u"submenu"_s}};

QVariantMap menuProperties()
{
    return {{u"Version"_s, kProtocolVersion},
            {u"TextDirection"_s, u"ltr"_s},
            {u"Status"_s, u"normal"_s},
            {u"IconThemePath"_s, QStringList()}};
}

} // namespace

DBusMenu::DBusMenu(SessionBus &bus, std::function<QList<MenuItem>()> read, QObject *parent)
    : QDBusVirtualObject(parent)
    , m_bus(bus)
    , m_read(std::move(read))
    , m_items(m_read())
{
    qDBusRegisterMetaType<DBusMenuItem>();
    qDBusRegisterMetaType<QList<DBusMenuItem>>();
    qDBusRegisterMetaType<DBusMenuRemoval>();
    qDBusRegisterMetaType<QList<DBusMenuRemoval>>();
    qDBusRegisterMetaType<DBusMenuLayout>();
    qDBusRegisterMetaType<DBusMenuEvent>();
    qDBusRegisterMetaType<QList<DBusMenuEvent>>();
    connect(&m_bus, &SessionBus::connected, this, &DBusMenu::exportObject);
    exportObject();
}

void DBusMenu::exportObject()
{
    if (m_bus.isConnected()) {
        m_bus.connection().registerVirtualObject(path(), this);
    }
}

void DBusMenu::refresh()
{
    QList<MenuItem> items = m_read();
    QList<DBusMenuItem> changed;
    for (qsizetype index = 0; index < items.size(); ++index) {
        if (items.at(index) != m_items.at(index)) {
            changed.append({items.at(index).id, propertiesOf(items.at(index))});
        }
    }
    m_items = std::move(items);
    if (changed.isEmpty() || !m_bus.isConnected()) {
        return;
    }
    ++m_revision;
    QDBusMessage signal = QDBusMessage::createSignal(path(), menuInterface(), u"ItemsPropertiesUpdated"_s);
    signal.setArguments({QVariant::fromValue(changed), QVariant::fromValue(QList<DBusMenuRemoval>())});
    m_bus.connection().send(signal);
}

QString DBusMenu::introspect(const QString & /*path*/) const
{
    return uR"xml(<interface name="com.canonical.dbusmenu">
<property name="Version" type="u" access="read"/><property name="TextDirection" type="s" access="read"/>
<property name="Status" type="s" access="read"/><property name="IconThemePath" type="as" access="read"/>
<method name="GetLayout"><arg type="i" direction="in"/><arg type="i" direction="in"/><arg type="as" direction="in"/>
<arg type="u" direction="out"/><arg type="(ia{sv}av)" direction="out"/></method>
<method name="GetGroupProperties"><arg type="ai" direction="in"/><arg type="as" direction="in"/>
<arg type="a(ia{sv})" direction="out"/></method>
<method name="GetProperty"><arg type="i" direction="in"/><arg type="s" direction="in"/>
<arg type="v" direction="out"/></method>
<method name="Event"><arg type="i" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="in"/>
<arg type="u" direction="in"/></method>
<method name="EventGroup"><arg type="a(isvu)" direction="in"/><arg type="ai" direction="out"/></method>
<method name="AboutToShow"><arg type="i" direction="in"/><arg type="b" direction="out"/></method>
<method name="AboutToShowGroup"><arg type="ai" direction="in"/><arg type="ai" direction="out"/>
<arg type="ai" direction="out"/></method>
<signal name="ItemsPropertiesUpdated"><arg type="a(ia{sv})"/><arg type="a(ias)"/></signal>
<signal name="LayoutUpdated"><arg type="u"/><arg type="i"/></signal>
</interface>)xml"_s;
}

bool DBusMenu::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (const auto reply = propertiesReply(message, menuInterface(), menuProperties())) {
        return connection.send(*reply);
    }
    static const QMap<QString, QString> signatures{
        {u"GetLayout"_s, u"iias"_s},      {u"GetGroupProperties"_s, u"aias"_s}, {u"GetProperty"_s, u"is"_s},
        {u"Event"_s, u"isvu"_s},          {u"EventGroup"_s, u"a(isvu)"_s},      {u"AboutToShow"_s, u"i"_s},
        {u"AboutToShowGroup"_s, u"ai"_s},
    };
    const bool isOurs = message.interface() == menuInterface() || message.interface().isEmpty();
    if (!isOurs || !signatures.contains(message.member())) {
        return false;
    }
    if (signatures.value(message.member()) != message.signature()) {
        return connection.send(message.createErrorReply(QDBusError::InvalidArgs, message.signature()));
    }
    return connection.send(message.createReply(answer(message)));
}

QVariantList DBusMenu::answer(const QDBusMessage &message)
{
    const QString member = message.member();
    const QVariantList arguments = message.arguments();
    if (member == "GetLayout"_L1) {
        refresh();
        return layout(arguments);
    }
    if (member == "GetGroupProperties"_L1) {
        const auto wanted = qdbus_cast<QList<int>>(arguments.first());
        QList<DBusMenuItem> found;
        for (const MenuItem &item : m_items) {
            if (wanted.isEmpty() || wanted.contains(item.id)) {
                found.append({item.id, propertiesOf(item)});
            }
        }
        return {QVariant::fromValue(found)};
    }
    if (member == "GetProperty"_L1) {
        QVariant value(QString{});
        for (const MenuItem &item : m_items) {
            if (item.id == arguments.first().toInt()) {
                value = propertiesOf(item).value(arguments.at(1).toString(), value);
            }
        }
        return {QVariant::fromValue(QDBusVariant(value))};
    }
    if (member == "Event"_L1) {
        event(arguments.first().toInt(), arguments.at(1).toString());
        return {};
    }
    if (member == "EventGroup"_L1) {
        for (const auto &each : qdbus_cast<QList<DBusMenuEvent>>(arguments.first())) {
            event(each.id, each.kind);
        }
        return {QVariant::fromValue(QList<int>())};
    }
    // About to show: prompt and keys change without a word, so this is the moment to look.
    const quint32 before = m_revision;
    refresh();
    const bool needsUpdate = m_revision != before;
    if (member == "AboutToShow"_L1) {
        return {needsUpdate};
    }
    return {QVariant::fromValue(needsUpdate ? QList<int>{kRoot} : QList<int>()), QVariant::fromValue(QList<int>())};
}

QVariantList DBusMenu::layout(const QVariantList &arguments) const
{
    const int parent = arguments.first().toInt();
    DBusMenuLayout found{parent, {}, {}};
    if (parent == kRoot) {
        found.properties = kRootProperties;
    }
    for (const MenuItem &item : m_items) {
        if (parent == kRoot && arguments.at(1).toInt() != 0) {
            found.children.append(QVariant::fromValue(DBusMenuLayout{item.id, propertiesOf(item), {}}));
        } else if (parent == item.id) {
            found.properties = propertiesOf(item);
        }
    }
    return {m_revision, QVariant::fromValue(found)};
}

void DBusMenu::event(int id, const QString &kind)
{
    if (kind != "clicked"_L1) {
        return;
    }
    // What a panel shows may be older than what holds now.
    refresh();
    for (const MenuItem &item : QList<MenuItem>(m_items)) {
        const bool canBeClicked = item.kind == MenuItem::Kind::Button || item.kind == MenuItem::Kind::Toggle;
        if (item.id == id && canBeClicked && item.isEnabled) {
            Q_EMIT triggered(item.id);
        }
    }
}

QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuItem &item)
{
    argument.beginStructure();
    argument << item.id << item.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuItem &item)
{
    argument.beginStructure();
    argument >> item.id >> item.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuRemoval &removal)
{
    argument.beginStructure();
    argument << removal.id << removal.names;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuRemoval &removal)
{
    argument.beginStructure();
    argument >> removal.id >> removal.names;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuLayout &layout)
{
    argument.beginStructure();
    argument << layout.id << layout.properties << layout.children;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuLayout &layout)
{
    argument.beginStructure();
    argument >> layout.id >> layout.properties >> layout.children;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuEvent &event)
{
    argument.beginStructure();
    argument << event.id << event.kind << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuEvent &event)
{
    argument.beginStructure();
    argument >> event.id >> event.kind >> event.data >> event.timestamp;
    argument.endStructure();
    return argument;
}

} // namespace quorvane
