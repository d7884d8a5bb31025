#pragma once

#include "Manager/WallpaperManager.h"

#include <QJsonObject>
#include <QString>

namespace quorvane {

class DesktopPicture;
struct Screen;

/// What `status` tells: JSON for programs, and the same as text for people.
namespace Reports {

/// screens are those of desktop at this moment.
[[nodiscard]] QJsonObject status(const WallpaperManager &manager, const DesktopPicture &desktop,
                                 const QList<Screen> &screens);

/// What status() gave, a line for each fact.
[[nodiscard]] QString statusText(const QJsonObject &status);

} // namespace Reports

} // namespace quorvane
