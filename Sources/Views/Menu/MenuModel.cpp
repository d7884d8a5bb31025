#include "Views/Menu/MenuModel.h"

namespace quorvane {

void MenuModel::attach()
{
    for (const auto signal : {&WallpaperManager::isLoadingChanged, &WallpaperManager::nextFireDateChanged,
                              &WallpaperManager::autoEnabledChanged}) {
        connect(manager(), signal, this, &MenuModel::changed);
    }
    Q_EMIT changed();
}

void MenuModel::setTrayShown(bool isShown)
{
    if (m_isTrayShown != isShown) {
        m_isTrayShown = isShown;
        Q_EMIT isNeededChanged();
    }
}

void MenuModel::setCanGenerate(bool can)
{
    m_canGenerate = can;
    Q_EMIT changed();
}

QString MenuModel::stateLine() const
{
    MenuState state;
    state.isLoading = manager()->isLoading();
    state.nextFireDate = manager()->nextFireDate();
    return quorvane::stateLine(state, QLocale());
}

QString MenuModel::textOf(MenuItem::Id id)
{
    for (const MenuItem &item : menuItems({}, QLocale())) {
        if (item.id == id) {
            return item.text;
        }
    }
    return {};
}

bool MenuModel::autoEnabled() const
{
    return manager()->autoEnabled();
}

void MenuModel::generate()
{
    if (m_canGenerate) {
        manager()->generateAndSet();
    }
}

void MenuModel::toggleAuto()
{
    manager()->setAutoEnabled(!manager()->autoEnabled());
}

} // namespace quorvane
