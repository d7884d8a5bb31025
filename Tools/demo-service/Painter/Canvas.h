#pragma once

#include "demo-service/Painter/Color.h"

#include <QSize>

#include <functional>
#include <vector>

namespace quorvane::painter {

/// The picture while it is painted. Places are measured in picture heights from the middle of the upper edge, x to the
/// right and y down, so that a scene is the same at every size.
class Canvas
{
  public:
    explicit Canvas(QSize size);

    [[nodiscard]] int width() const { return m_size.width(); }
    [[nodiscard]] int height() const { return m_size.height(); }

    /// How large a pixel is.
    [[nodiscard]] float pixel() const { return m_pixel; }
    [[nodiscard]] float x(float column) const { return (column + 0.5F - 0.5F * static_cast<float>(width())) * m_pixel; }
    [[nodiscard]] float y(float row) const { return (row + 0.5F) * m_pixel; }
    [[nodiscard]] float column(float x) const { return x / m_pixel + 0.5F * static_cast<float>(width()) - 0.5F; }
    [[nodiscard]] float row(float y) const { return y / m_pixel - 0.5F; }

    [[nodiscard]] Color &at(int column, int row) { return m_pixels[index(column, row)]; }
    [[nodiscard]] const Color &at(int column, int row) const { return m_pixels[index(column, row)]; }

    /// The colour at a place between pixels; beyond an edge it is the edge's.
    [[nodiscard]] Color sample(float column, float row) const;

    void blend(int column, int row, Color color, float coverage)
    {
        Color &there = at(column, row);
        there = mix(there, color, coverage);
    }

  private:
    [[nodiscard]] size_t index(int column, int row) const
    {
        return static_cast<size_t>(row) * static_cast<size_t>(m_size.width()) + static_cast<size_t>(column);
    }

    QSize m_size;
    float m_pixel;
    std::vector<Color> m_pixels;
};

/// Calls work for every number from 0 to count - 1, on all processors. The order is not defined, so work for one number
/// must not depend on another's.
void inParallel(int count, const std::function<void(int)> &work);

} // namespace quorvane::painter
