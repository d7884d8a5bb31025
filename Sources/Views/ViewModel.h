#pragma once

#include "Manager/WallpaperManager.h"
#include "Views/ManagerType.h"

#include <QObject>

namespace quorvane {

/// What the view models share: QML creates them, so the manager comes in as a property that is set once, at the start.
/// Its name is written in full where it is a base, for the type registration of Qt 6.4 resolves no namespaces.
class ViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(quorvane::WallpaperManager *manager READ manager WRITE setManager NOTIFY managerChanged REQUIRED)
    QML_ANONYMOUS

  public:
    using QObject::QObject;

    [[nodiscard]] WallpaperManager *manager() const { return m_manager; }
    void setManager(WallpaperManager *manager);

  Q_SIGNALS:
    void managerChanged();

  protected:
    /// The manager is there now: connect to it, and take its values over.
    virtual void attach() = 0;

  private:
    WallpaperManager *m_manager = nullptr;
};

} // namespace quorvane
