#pragma once

#include "Manager/MenuItems.h"

#include <QDBusArgument>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <functional>

namespace quorvane {

using namespace Qt::StringLiterals;

class SessionBus;

/// A menu of one level as panels read it: the interface com.canonical.dbusmenu at path(). Written here because what Qt
/// has belongs to QtWidgets' tray icon, which decides once for the life of the process whether there is a tray.
class DBusMenu : public QDBusVirtualObject
{
    Q_OBJECT

  public:
    /// read computes the items; it is called whenever a panel is about to show them.
    DBusMenu(SessionBus &bus, std::function<QList<MenuItem>()> read, QObject *parent = nullptr);

    [[nodiscard]] static QString path() { return u"/MenuBar"_s; }

    /// Computes the items again and tells panels which ones are different now.
    void refresh();

    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

  Q_SIGNALS:
    void triggered(quorvane::MenuItem::Id id);

  private:
    [[nodiscard]] QVariantList answer(const QDBusMessage &message);
    [[nodiscard]] QVariantList layout(const QVariantList &arguments) const;
    void event(int id, const QString &kind);
    void exportObject();

    SessionBus &m_bus;
    std::function<QList<MenuItem>()> m_read;
    QList<MenuItem> m_items;
    quint32 m_revision = 1;
};

/// (ia{sv}): some properties of one item.
struct DBusMenuItem
{
    int id;
    QVariantMap properties;
};
QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuItem &item);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuItem &item);

/// (ias): names of properties that an item has no more.
struct DBusMenuRemoval
{
    int id;
    QStringList names;
};
QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuRemoval &removal);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuRemoval &removal);

/// (ia{sv}av): an item and what lies under it.
struct DBusMenuLayout
{
    int id;
    QVariantMap properties;
    QVariantList children;
};
QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuLayout &layout);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuLayout &layout);

/// (isvu): something that happened to an item.
struct DBusMenuEvent
{
    int id;
    QString kind;
    QDBusVariant data;
    quint32 timestamp;
};
QDBusArgument &operator<<(QDBusArgument &argument, const DBusMenuEvent &event);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusMenuEvent &event);

} // namespace quorvane

Q_DECLARE_METATYPE(quorvane::DBusMenuItem)
Q_DECLARE_METATYPE(quorvane::DBusMenuRemoval)
Q_DECLARE_METATYPE(quorvane::DBusMenuLayout)
Q_DECLARE_METATYPE(quorvane::DBusMenuEvent)
