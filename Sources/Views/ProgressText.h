#pragma once

#include "Manager/WallpaperManager.h"

#include <QString>

namespace quorvane {

/// "12 of 54 tiles, about 2 min left"; the time only once it is known. Empty without progress.
[[nodiscard]] QString progressText(const std::optional<UpscaleProgress> &progress);

/// The part that is done, 0 to 1.
[[nodiscard]] double progressShare(const std::optional<UpscaleProgress> &progress);

} // namespace quorvane
