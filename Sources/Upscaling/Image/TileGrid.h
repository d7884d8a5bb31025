#pragma once

#include <QRect>
#include <QSize>

namespace quorvane {

/// How a picture is cut into the squares that are enlarged one by one. All in pixels, origin at the top left. Tiles
/// abut: no overlap and no blending, so every result pixel comes from exactly one tile. What is seen of the neighbours
/// only helps to compute the tile.
class TileGrid
{
  public:
    static constexpr int kTileEdge = 512;
    static constexpr int kScale = 4;
    static constexpr int kResultEdge = kTileEdge * kScale;
    /// How far a network may look beyond a tile: with a quarter of the edge on each side it has to look at more than
    /// twice the tile already.
    static constexpr int kMostReach = kTileEdge / 4;
    /// The longest side of a tile with its neighbours' pixels.
    static constexpr int kMostSeenEdge = kTileEdge + 2 * kMostReach;

    explicit constexpr TileGrid(QSize source)
        : m_source(source)
    {
    }

    [[nodiscard]] constexpr QSize sourceSize() const { return m_source; }
    [[nodiscard]] constexpr int columns() const { return (m_source.width() + kTileEdge - 1) / kTileEdge; }
    [[nodiscard]] constexpr int rows() const { return (m_source.height() + kTileEdge - 1) / kTileEdge; }
    [[nodiscard]] constexpr int count() const { return columns() * rows(); }

    /// The source rounded up to whole tiles.
    [[nodiscard]] constexpr QSize paddedSize() const { return {columns() * kTileEdge, rows() * kTileEdge}; }
    [[nodiscard]] constexpr QSize canvasSize() const { return paddedSize() * kScale; }
    [[nodiscard]] constexpr QSize resultSize() const { return m_source * kScale; }

    /// The part of the source that the tile in column tx, row ty shows; its padding is not counted.
    [[nodiscard]] QRect sourceRect(int tx, int ty) const
    {
        return QRect(tx * kTileEdge, ty * kTileEdge, kTileEdge, kTileEdge).intersected(QRect(QPoint(0, 0), m_source));
    }

    /// The same with its neighbours' pixels, as far as reach and as there are any.
    [[nodiscard]] QRect seenRect(int tx, int ty, int reach) const
    {
        return sourceRect(tx, ty).adjusted(-reach, -reach, reach, reach).intersected(QRect(QPoint(0, 0), m_source));
    }

  private:
    QSize m_source;
};

} // namespace quorvane
