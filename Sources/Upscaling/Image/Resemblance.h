#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>

namespace quorvane {

/// Whether an enlarged tile is still the picture it came from, so that a network or a driver that gives black or noise
/// ends as an error instead of as a wallpaper.
///
/// Both are reduced to the means of cells of 32 × 32 source pixels, and the mean difference of those may be 24 of 255
/// steps: networks keep local brightness within a few steps, a black tile is wrong by the picture's whole brightness.
/// A part thinner than a cell may differ by 96, because networks let the black of the padding bleed into it.
///
/// part is the tile's rectangle in source, which has four bytes a pixel; the same pixels lie in enlarged, three bytes a
/// pixel and four times as large, from corner on.
[[nodiscard]] bool resembles(const QImage &source, QRect part, const QImage &enlarged, QPoint corner);

} // namespace quorvane
