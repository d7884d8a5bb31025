#include "Manager/LibraryWatcher.h"

#include "Manager/Library/ImageRecords.h"
#include "Manager/WallpaperManager.h"

#include <chrono>

namespace quorvane {

using namespace std::chrono_literals;

LibraryWatcher::LibraryWatcher(WallpaperManager *manager, QObject *parent)
    : QObject(parent)
{
    m_watcher.addPath(ImageRecords::folder());
    m_settled.setSingleShot(true);
    m_settled.setInterval(300ms);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_settled, qOverload<>(&QTimer::start));
    connect(&m_settled, &QTimer::timeout, manager, &WallpaperManager::refreshHistory);
}

} // namespace quorvane
