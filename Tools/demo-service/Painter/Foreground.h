#pragma once

#include "demo-service/Painter/Canvas.h"
#include "demo-service/Painter/Scene.h"

namespace quorvane::painter {

/// Trees close by that frame the view: conifers, or palms where it is warm.
void paintForeground(Canvas &canvas, const Scene &scene);

} // namespace quorvane::painter
