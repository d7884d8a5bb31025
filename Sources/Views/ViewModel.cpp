#include "Views/ViewModel.h"

namespace quorvane {

void ViewModel::setManager(WallpaperManager *manager)
{
    if (m_manager != nullptr || manager == nullptr) {
        return;
    }
    m_manager = manager;
    attach();
    Q_EMIT managerChanged();
}

} // namespace quorvane
