#pragma once

#include "App/Tray/MenuBarIcon.h"
#include "Manager/MenuItems.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace quorvane {

/// The icon in an X11 tray of the old kind, which embeds a window, for panels that know nothing of the icons on the
/// bus. It takes a while without one of those before it appears, and it is gone when one comes. Nothing of it exists
/// before, nor on another platform than X11.
///
/// Here Qt's own icon will do: what it decides once for the life of the process is whether there is a tray on the bus,
/// and when this one is made, there is none.
class EmbeddedTray : public QObject
{
    Q_OBJECT

  public:
    /// read computes the menu's items; it is called whenever the menu is about to be shown.
    EmbeddedTray(MenuBarIcon icon, std::function<QList<MenuItem>()> read, QObject *parent = nullptr);
    ~EmbeddedTray() override;
    EmbeddedTray(const EmbeddedTray &) = delete;
    EmbeddedTray &operator=(const EmbeddedTray &) = delete;
    EmbeddedTray(EmbeddedTray &&) = delete;
    EmbeddedTray &operator=(EmbeddedTray &&) = delete;

    /// Whether the icon is wanted, because nobody shows the one on the bus.
    void setWanted(bool isWanted);

    void setToolTip(const QString &text);

    /// Whether this process has what the icon needs: it must be X11, and a QApplication.
    [[nodiscard]] static bool isPossible();

  Q_SIGNALS:
    void triggered(quorvane::MenuItem::Id id);
    /// The icon itself was pressed.
    void activated();

  private:
    void make();
    void fillMenu();

    MenuBarIcon m_image;
    std::function<QList<MenuItem>()> m_read;
    QString m_toolTip;
    QTimer m_grace;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon;
};

} // namespace quorvane
