#pragma once

#include "App/Tray/MenuBarIcon.h"
#include "App/Tray/StatusNotifierTypes.h"

#include <QDBusServiceWatcher>
#include <QObject>

#include <memory>

class StatusNotifierItemAdaptor;

namespace quorvane {

class SessionBus;

/// The icon in the panel: org.kde.StatusNotifierItem. It registers with every watcher that appears, so it comes when
/// the panel comes later and comes back when the panel was restarted.
class StatusNotifierItem : public QObject
{
    Q_OBJECT

  public:
    StatusNotifierItem(SessionBus &bus, const MenuBarIcon &icon, QObject *parent = nullptr);

    /// Whether a panel shows the icon, as far as it says so; on a bus that has not answered yet, it is taken for shown.
    [[nodiscard]] bool isShown() const { return m_isShown; }

    /// One line or more under the program's name.
    void setToolTip(const QString &text);

    // What panels call, under the names that they call it by.
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y) const;
    void ContextMenu(int x, int y) const;
    void Scroll(int delta, const QString &orientation) const;

  Q_SIGNALS:
    /// The icon itself was pressed, in a panel that does not open the menu then.
    void activated();
    void isShownChanged();

  private Q_SLOTS:
    void askForHost();

  private:
    void attach();
    void registerWithWatcher();
    void setShown(bool isShown);
    void publishToolTip();

    SessionBus &m_bus;
    StatusNotifierItemAdaptor *m_adaptor;
    QString m_toolTip;
    bool m_isShown = false;
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
};

} // namespace quorvane
