#pragma once

#include "demo-service/Painter/Canvas.h"
#include "demo-service/Painter/Scene.h"

#include <memory>
#include <vector>

namespace quorvane::painter {

/// One slice of the land, seen from the front: everything below a line. Layers know places, not pixels.
class Layer
{
  public:
    Layer() = default;
    virtual ~Layer() = default;
    Layer(const Layer &) = delete;
    Layer &operator=(const Layer &) = delete;

    /// The y at which the layer begins at x.
    [[nodiscard]] virtual float top(float x) const = 0;

    /// The colour at a place, which lies depth below the layer's top.
    [[nodiscard]] virtual Color shade(float x, float y, float depth) const = 0;
};

using Layers = std::vector<std::unique_ptr<Layer>>; ///< The farthest first.

/// The layers of the scene's land. Empty in space.
[[nodiscard]] Layers layersOf(const Scene &scene);

/// Paints sky and layers down to the row of lowestY; nothing is painted that a nearer layer hides.
void paintLandscape(Canvas &canvas, const Scene &scene, const Layers &layers, float lowestY);

} // namespace quorvane::painter
