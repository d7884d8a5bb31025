#pragma once

#include "App/Tray/DBusMenuTypes.h"
#include "Manager/MenuItems.h"

#include <QObject>

#include <functional>

class DbusmenuAdaptor;

namespace quorvane {

using namespace Qt::StringLiterals;

class SessionBus;

/// A menu of one level as panels read it: the interface com.canonical.dbusmenu at path(). Written here because what Qt
/// has belongs to QtWidgets' tray icon, which decides once for the life of the process whether there is a tray.
class DBusMenu : public QObject
{
    Q_OBJECT

  public:
    /// read computes the items; it is called whenever a panel is about to show them.
    DBusMenu(SessionBus &bus, std::function<QList<MenuItem>()> read, QObject *parent = nullptr);

    [[nodiscard]] static QString path() { return u"/MenuBar"_s; }

    /// Computes the items again and tells panels which ones are different now.
    void refresh();

    // What panels call, under the names that they call it by.
    [[nodiscard]] quint32 GetLayout(int parentId, int depth, const QStringList &names, DBusMenuLayout &layout);
    [[nodiscard]] QList<DBusMenuItem> GetGroupProperties(const QList<int> &ids, const QStringList &names) const;
    [[nodiscard]] QDBusVariant GetProperty(int id, const QString &name) const;
    void Event(int id, const QString &kind, const QDBusVariant &data, quint32 timestamp);
    [[nodiscard]] QList<int> EventGroup(const QList<DBusMenuEvent> &events);
    [[nodiscard]] bool AboutToShow(int id);
    [[nodiscard]] QList<int> AboutToShowGroup(const QList<int> &ids, QList<int> &unknown);

  Q_SIGNALS:
    void triggered(quorvane::MenuItem::Id id);

  private:
    void happen(int id, const QString &kind);
    void exportObject();

    SessionBus &m_bus;
    std::function<QList<MenuItem>()> m_read;
    QList<MenuItem> m_items;
    quint32 m_revision = 1;
    DbusmenuAdaptor *m_adaptor;
};

} // namespace quorvane
