#pragma once

#include "demo-service/Painter/Canvas.h"
#include "demo-service/Painter/Scene.h"

namespace quorvane::painter {

/// Whether the scene has water (or a wet street) in front.
[[nodiscard]] bool hasWater(const Scene &scene);

/// Fills everything below the horizon with water that mirrors what is painted above it.
void paintWater(Canvas &canvas, const Scene &scene);

} // namespace quorvane::painter
