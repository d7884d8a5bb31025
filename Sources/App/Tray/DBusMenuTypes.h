#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QStringList>
#include <QVariantMap>

/// What the interface com.canonical.dbusmenu carries.
namespace quorvane {

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

/// Before any of them is sent or taken.
void registerDBusMenuTypes();

} // namespace quorvane

Q_DECLARE_METATYPE(quorvane::DBusMenuItem)
Q_DECLARE_METATYPE(quorvane::DBusMenuRemoval)
Q_DECLARE_METATYPE(quorvane::DBusMenuLayout)
Q_DECLARE_METATYPE(quorvane::DBusMenuEvent)
