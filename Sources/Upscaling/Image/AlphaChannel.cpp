#include "Upscaling/Image/AlphaChannel.h"

#include <algorithm>

namespace quorvane {

namespace {

/// Where a result pixel's centre lies between two source pixels: the first of them, and the second's share in eighths.
struct Position
{
    int first;
    int share;
};

Position positionOf(int result)
{
    // Centre (result + 0.5) / 4 - 0.5, in eighths, is result * 2 - 3.
    const int eighths = result * 2 - 3;
    const int first = eighths < 0 ? -1 : eighths / 8;
    return {first, eighths - first * 8};
}

} // namespace

void enlargedAlphaRow(const QImage &source, int resultY, std::span<std::uint8_t> row)
{
    const Position vertical = positionOf(resultY);
    const int lastX = source.width() - 1;
    const int lastY = source.height() - 1;
    const uchar *upper = source.constScanLine(std::max(vertical.first, 0));
    const uchar *lower = source.constScanLine(std::min(vertical.first + 1, lastY));
    for (int x = 0; x < static_cast<int>(row.size()); ++x) {
        const Position horizontal = positionOf(x);
        const qsizetype left = 4 * std::max(horizontal.first, 0) + 3;
        const qsizetype right = 4 * std::min(horizontal.first + 1, lastX) + 3;
        const int above = upper[left] * (8 - horizontal.share) + upper[right] * horizontal.share;
        const int below = lower[left] * (8 - horizontal.share) + lower[right] * horizontal.share;
        row[static_cast<std::size_t>(x)] =
            static_cast<std::uint8_t>((above * (8 - vertical.share) + below * vertical.share + 32) / 64);
    }
}

void joinColorsAndAlpha(std::span<const std::uint8_t> premultipliedRgb, std::span<const std::uint8_t> alpha,
                        std::span<std::uint8_t> rgba)
{
    for (std::size_t pixel = 0; pixel < alpha.size(); ++pixel) {
        const int a = alpha[pixel];
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const int color = std::min<int>(premultipliedRgb[3 * pixel + channel], a);
            rgba[4 * pixel + channel] = static_cast<std::uint8_t>(a == 0 ? 0 : (color * 255 + a / 2) / a);
        }
        rgba[4 * pixel + 3] = static_cast<std::uint8_t>(a);
    }
}

} // namespace quorvane
