#pragma once

#include "App/Tray/MenuBarIcon.h"

#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <memory>

namespace quorvane {

class SessionBus;

/// The icon in the panel: org.kde.StatusNotifierItem. It registers with every watcher that appears, so it comes when
/// the panel comes later and comes back when the panel was restarted.
class StatusNotifierItem : public QDBusVirtualObject
{
    Q_OBJECT

  public:
    StatusNotifierItem(SessionBus &bus, MenuBarIcon icon, QObject *parent = nullptr);

    /// Whether a panel shows the icon, as far as it says so; on a bus that has not answered yet, it is taken for shown.
    [[nodiscard]] bool isShown() const { return m_isShown; }

    /// One line or more under the program's name.
    void setToolTip(const QString &text);

    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

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
    [[nodiscard]] QVariantMap properties() const;

    SessionBus &m_bus;
    MenuBarIcon m_icon;
    QString m_toolTip;
    bool m_isShown = false;
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
};

} // namespace quorvane
