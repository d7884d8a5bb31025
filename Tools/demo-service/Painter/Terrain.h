#pragma once

#include "demo-service/Painter/Layer.h"

namespace quorvane::painter {

/// Where a layer stands and how much air lies in front of it.
struct Place
{
    float base;   ///< y of the foot.
    float height; ///< From the foot to the highest point.
    float scale;  ///< How many features stand side by side in one picture height.
    float haze;   ///< 0 close by, 1 lost in the air.
    uint32_t seed;
};

/// Ridged rock, with snow above a line that the scene decides.
[[nodiscard]] std::unique_ptr<Layer> mountains(const Scene &scene, const Place &place);

/// Sand with knife-sharp crests between light and shadow.
[[nodiscard]] std::unique_ptr<Layer> dunes(const Scene &scene, const Place &place);

/// Green land that rises from the sea here and there, with sand at its foot.
[[nodiscard]] std::unique_ptr<Layer> island(const Scene &scene, const Place &place);

/// Rolling ground: grass with flowers, or snow.
[[nodiscard]] std::unique_ptr<Layer> hills(const Scene &scene, const Place &place);

/// A slope densely grown with trees.
[[nodiscard]] std::unique_ptr<Layer> trees(const Scene &scene, const Place &place);

/// Houses with lit windows when it is dark.
[[nodiscard]] std::unique_ptr<Layer> houses(const Scene &scene, const Place &place);

/// What the air between makes of a colour at a place: the farther, the more it takes on the colour of the sky behind.
[[nodiscard]] Color throughAir(const Scene &scene, Color color, float x, float haze);

/// How bright the light is that falls on the land: about 1 by day, little at night.
[[nodiscard]] float daylight(const Scene &scene);

} // namespace quorvane::painter
