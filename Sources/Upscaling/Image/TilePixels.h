#pragma once

#include <QImage>

#include <span>

/// Between a picture's bytes and the network's numbers.
namespace quorvane {

/// Writes tile, Format_RGBX8888 or Format_RGBA8888_Premultiplied, into planes: all of red, then green, then blue, row
/// by row, 0..1. planes holds exactly three numbers a pixel. Alpha is left out.
void planesFromTile(const QImage &tile, std::span<float> planes);

/// The way back: a Format_RGBX8888 picture of size, every number clamped to 0..1 and rounded to the nearest of the 256
/// steps. Null when one of the numbers is not finite.
[[nodiscard]] QImage tileFromPlanes(std::span<const float> planes, QSize size);

} // namespace quorvane
