#include "App/Tray/MenuBar.h"

#include "Manager/WallpaperManager.h"

using namespace Qt::StringLiterals;

namespace quorvane {

MenuBar::MenuBar(SessionBus &bus, WallpaperManager &manager, QObject *parent)
    : MenuBar(bus, manager, menuBarIcon(), parent)
{
}

MenuBar::MenuBar(SessionBus &bus, WallpaperManager &manager, const MenuBarIcon &icon, QObject *parent)
    : QObject(parent)
    , m_manager(manager)
    , m_menu(bus, [this] { return items(); })
    , m_item(bus, icon)
    , m_embedded(icon, [this] { return items(); })
{
    connect(&m_menu, &DBusMenu::triggered, this, &MenuBar::choose);
    connect(&m_item, &StatusNotifierItem::activated, this, &MenuBar::openWindowChosen);
    connect(&m_embedded, &EmbeddedTray::triggered, this, &MenuBar::choose);
    connect(&m_embedded, &EmbeddedTray::activated, this, &MenuBar::openWindowChosen);
    connect(&m_item, &StatusNotifierItem::isShownChanged, this, [this] { m_embedded.setWanted(!m_item.isShown()); });
    m_embedded.setWanted(!m_item.isShown());
    connect(&m_item, &StatusNotifierItem::isShownChanged, this, &MenuBar::isShownChanged);
    for (const auto signal : {&WallpaperManager::isLoadingChanged, &WallpaperManager::nextFireDateChanged,
                              &WallpaperManager::autoEnabledChanged, &WallpaperManager::providerOverrideChanged,
                              &WallpaperManager::nsfwEnabledChanged, &WallpaperManager::fourKEnabledChanged,
                              &WallpaperManager::statusChanged}) {
        connect(&m_manager, signal, this, &MenuBar::refresh);
    }
    refresh();
}

void MenuBar::refresh()
{
    m_menu.refresh();
    const QString line = stateLine(state(), QLocale());
    const QString toolTip = m_manager.status().isEmpty() ? line : line + '\n'_L1 + m_manager.status();
    m_item.setToolTip(toolTip);
    m_embedded.setToolTip(u"Quorvane\n"_s + toolTip);
}

QList<MenuItem> MenuBar::items() const
{
    return menuItems(state(), QLocale());
}

MenuState MenuBar::state() const
{
    return {m_manager.isLoading(), m_manager.nextFireDate(), m_manager.autoEnabled(), !m_manager.prompt().isEmpty(),
            m_manager.missingKeys().isEmpty()};
}

void MenuBar::choose(MenuItem::Id id)
{
    switch (id) {
    case MenuItem::GenerateNow:
        m_manager.generateAndSet();
        return;
    case MenuItem::AutoGenerate:
        m_manager.setAutoEnabled(!m_manager.autoEnabled());
        return;
    case MenuItem::OpenWindow:
        Q_EMIT openWindowChosen();
        return;
    case MenuItem::Settings:
        Q_EMIT settingsChosen();
        return;
    case MenuItem::Quit:
        Q_EMIT quitChosen();
        return;
    default:
        return;
    }
}

} // namespace quorvane
