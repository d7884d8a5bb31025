#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

namespace quorvane {

class WallpaperManager;

/// Has the manager read the library again soon after another program added, changed or removed something in it. Main
/// thread; the manager outlives it.
class LibraryWatcher : public QObject
{
  public:
    explicit LibraryWatcher(WallpaperManager *manager, QObject *parent = nullptr);

  private:
    QFileSystemWatcher m_watcher;
    QTimer m_settled; ///< A copied folder of pictures is one change, not a thousand.
};

} // namespace quorvane
