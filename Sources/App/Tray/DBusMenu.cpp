#include "App/Tray/DBusMenu.h"

#include "Platform/Bus/SessionBus.h"

#include "dbusmenuadaptor.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kRoot = 0;
constexpr quint32 kProtocolVersion = 3;

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

} // namespace

DBusMenu::DBusMenu(SessionBus &bus, std::function<QList<MenuItem>()> read, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_read(std::move(read))
    , m_items(m_read())
    , m_adaptor(new DbusmenuAdaptor(this))
{
    registerDBusMenuTypes();
    // The adaptor reads them from here.
    setProperty("Version", kProtocolVersion);
    setProperty("TextDirection", u"ltr"_s);
    setProperty("Status", u"normal"_s);
    setProperty("IconThemePath", QStringList());
    connect(&m_bus, &SessionBus::connected, this, &DBusMenu::exportObject);
    exportObject();
}

void DBusMenu::exportObject()
{
    if (m_bus.isConnected()) {
        m_bus.connection().registerObject(path(), this, QDBusConnection::ExportAdaptors);
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
    Q_EMIT m_adaptor->ItemsPropertiesUpdated(changed, {});
}

quint32 DBusMenu::GetLayout(int parentId, int depth, const QStringList & /*names*/, DBusMenuLayout &layout)
{
    refresh();
    layout = {parentId, parentId == kRoot ? kRootProperties : QVariantMap(), {}};
    for (const MenuItem &item : std::as_const(m_items)) {
        if (parentId == kRoot && depth != 0) {
            layout.children.append(QVariant::fromValue(DBusMenuLayout{item.id, propertiesOf(item), {}}));
        } else if (parentId == item.id) {
            layout.properties = propertiesOf(item);
        }
    }
    return m_revision;
}

QList<DBusMenuItem> DBusMenu::GetGroupProperties(const QList<int> &ids, const QStringList & /*names*/) const
{
    QList<DBusMenuItem> found;
    for (const MenuItem &item : m_items) {
        if (ids.isEmpty() || ids.contains(item.id)) {
            found.append({item.id, propertiesOf(item)});
        }
    }
    return found;
}

QDBusVariant DBusMenu::GetProperty(int id, const QString &name) const
{
    QVariant value(QString{});
    for (const MenuItem &item : m_items) {
        if (item.id == id) {
            value = propertiesOf(item).value(name, value);
        }
    }
    return QDBusVariant(value);
}

void DBusMenu::Event(int id, const QString &kind, const QDBusVariant & /*data*/, quint32 /*timestamp*/)
{
    happen(id, kind);
}

QList<int> DBusMenu::EventGroup(const QList<DBusMenuEvent> &events)
{
    for (const DBusMenuEvent &each : events) {
        happen(each.id, each.kind);
    }
    return {};
}

bool DBusMenu::AboutToShow(int /*id*/)
{
    // Prompt and keys change without a word, so this is the moment to look.
    const quint32 before = m_revision;
    refresh();
    return m_revision != before;
}

QList<int> DBusMenu::AboutToShowGroup(const QList<int> & /*ids*/, QList<int> & /*unknown*/)
{
    return AboutToShow(kRoot) ? QList<int>{kRoot} : QList<int>();
}

void DBusMenu::happen(int id, const QString &kind)
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

} // namespace quorvane
