#pragma once

#include "App/Tray/DBusMenu.h"
#include "App/Tray/EmbeddedTray.h"
#include "App/Tray/StatusNotifierItem.h"

#include <QObject>

namespace quorvane {

class WallpaperManager;

/// The icon and its menu, kept as the manager is. Reads the prompt and the key file when the menu is about to be shown,
/// because neither announces its changes.
class MenuBar : public QObject
{
    Q_OBJECT

  public:
    MenuBar(SessionBus &bus, WallpaperManager &manager, QObject *parent = nullptr);

    void refresh();

    /// Whether a panel shows the icon. An old tray of X11, which embeds it, does not count: nobody tells whether it
    /// does.
    [[nodiscard]] bool isShown() const { return m_item.isShown(); }

  Q_SIGNALS:
    void openWindowChosen();
    void settingsChosen();
    void quitChosen();
    void isShownChanged();

  private:
    MenuBar(SessionBus &bus, WallpaperManager &manager, const MenuBarIcon &icon, QObject *parent);
    void choose(MenuItem::Id id);
    [[nodiscard]] MenuState state() const;
    [[nodiscard]] QList<MenuItem> items() const;

    WallpaperManager &m_manager;
    DBusMenu m_menu;
    StatusNotifierItem m_item;
    EmbeddedTray m_embedded;
};

} // namespace quorvane
