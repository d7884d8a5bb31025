#pragma once

#include "Upscaling/LocalUpscaler.h"

#include <QString>
#include <QVariantMap>

/// How far an upscale is, on a terminal and over the bus.
namespace quorvane::Reports {

/// "3 of 12 tiles, 1:20 left"
[[nodiscard]] QString progressLine(const UpscaleProgress &progress);

/// Progress as it goes over the bus: "tilesDone", "tilesTotal" and, where it is known, "remainingMilliseconds".
[[nodiscard]] QVariantMap progressMap(const UpscaleProgress &progress);

/// The way back; what is missing in map is not known.
[[nodiscard]] UpscaleProgress progressFrom(const QVariantMap &map);

} // namespace quorvane::Reports
