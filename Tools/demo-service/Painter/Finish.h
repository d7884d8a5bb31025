#pragma once

#include "demo-service/Painter/Canvas.h"
#include "demo-service/Painter/Scene.h"

#include <QImage>

namespace quorvane::painter {

/// Rain, falling snow and fog banks in front of everything.
void paintWeather(Canvas &canvas, const Scene &scene);

/// Lets bright places glow into their surroundings.
void addGlow(Canvas &canvas, const Scene &scene);

/// The canvas as a picture for a screen: vignette, tones, and a grain below one step of brightness that keeps slow
/// gradients from showing bands.
[[nodiscard]] QImage develop(const Canvas &canvas, const Scene &scene);

} // namespace quorvane::painter
