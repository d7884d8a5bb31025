#pragma once

#include "demo-service/Painter/Canvas.h"
#include "demo-service/Painter/Scene.h"

namespace quorvane::painter {

/// The clear sky's light towards a place: the gradient of the time of day with the glow round sun or moon.
[[nodiscard]] Color airLight(const Scene &scene, float x, float y);

/// The colour that distance takes on at x: the light above the horizon without the glare of the sun itself.
[[nodiscard]] Color hazeLight(const Scene &scene, float x);

/// The whole sky with everything in it, down to lowestRow[column].
void paintSky(Canvas &canvas, const Scene &scene, const std::vector<int> &lowestRow);

/// Stars and the band of the milky way at a place, for a picture whose pixels are that large.
[[nodiscard]] Color starLight(const Scene &scene, float x, float y, float pixel, float density);

} // namespace quorvane::painter
