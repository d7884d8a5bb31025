#pragma once

#include "demo-service/Painter/Canvas.h"
#include "demo-service/Painter/Scene.h"

namespace quorvane::painter {

/// Fills the canvas with nebulae, stars and planets.
void paintSpace(Canvas &canvas, const Scene &scene);

} // namespace quorvane::painter
