#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QList>
#include <QString>

/// What the interface org.kde.StatusNotifierItem carries.
namespace quorvane {

/// (iiay): width, height, and the pixels from top left, each as alpha, red, green, blue.
struct DBusPixmap
{
    int width;
    int height;
    QByteArray pixels;
};
QDBusArgument &operator<<(QDBusArgument &argument, const DBusPixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusPixmap &pixmap);

/// (sa(iiay)ss)
struct DBusToolTip
{
    QString iconName;
    QList<DBusPixmap> icon;
    QString title;
    QString text;
};
QDBusArgument &operator<<(QDBusArgument &argument, const DBusToolTip &toolTip);
const QDBusArgument &operator>>(const QDBusArgument &argument, DBusToolTip &toolTip);

/// Before any of them is sent or taken.
void registerStatusNotifierTypes();

} // namespace quorvane

Q_DECLARE_METATYPE(quorvane::DBusPixmap)
Q_DECLARE_METATYPE(quorvane::DBusToolTip)
