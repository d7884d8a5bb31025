#pragma once

#include <QImage>

#include <cstdint>
#include <span>

/// The network knows three colours and no transparency, so alpha is enlarged beside it, straight from the source:
/// linear between the centres of the source's pixels, the outermost ones repeated. It knows no tiles, hence has no
/// seams. Running the network a second time for alpha would double the time for edges that hardly differ.
namespace quorvane {

/// Row resultY of source's alpha four times enlarged. source is Format_RGBA8888_Premultiplied; row holds four times its
/// width.
void enlargedAlphaRow(const QImage &source, int resultY, std::span<std::uint8_t> row);

/// Joins colours that are multiplied by alpha, three bytes a pixel, with alpha to what a PNG holds: four bytes a pixel,
/// colours not multiplied. Colours brighter than their alpha allows become the brightest it allows.
void joinColorsAndAlpha(std::span<const std::uint8_t> premultipliedRgb, std::span<const std::uint8_t> alpha,
                        std::span<std::uint8_t> rgba);

} // namespace quorvane
