#pragma once

#include "Manager/WallpaperManager.h"

#include <QtQml/qqml.h>

namespace quorvane {

/// Tells QML of the manager, so that the manager itself need not know QML.
struct ManagerType
{
    Q_GADGET
    QML_FOREIGN(quorvane::WallpaperManager)
    QML_NAMED_ELEMENT(WallpaperManager)
    QML_UNCREATABLE("The program has one manager and hands it to its windows.")
};

} // namespace quorvane
