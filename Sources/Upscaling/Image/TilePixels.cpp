#include "Upscaling/Image/TilePixels.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace quorvane {

void planesFromTile(const QImage &tile, std::span<float> planes)
{
    const qsizetype width = tile.width();
    const qsizetype plane = width * tile.height();
    for (int y = 0; y < tile.height(); ++y) {
        const uchar *pixel = tile.constScanLine(y);
        float *red = planes.data() + y * width;
        for (qsizetype x = 0; x < width; ++x) {
            red[x] = static_cast<float>(pixel[4 * x]) / 255.0F;
            red[plane + x] = static_cast<float>(pixel[4 * x + 1]) / 255.0F;
            red[2 * plane + x] = static_cast<float>(pixel[4 * x + 2]) / 255.0F;
        }
    }
}

QImage tileFromPlanes(std::span<const float> planes, QSize size)
{
    // Not finite means that every bit of the exponent is set; comparing bits keeps the loop free of branches.
    constexpr std::uint32_t kExponent = 0x7F800000;
    std::uint32_t notFinite = 0;
    const auto step = [&notFinite](float value) {
        notFinite |= (std::bit_cast<std::uint32_t>(value) & kExponent) == kExponent ? 1U : 0U;
        return static_cast<std::uint32_t>(std::min(std::max(value, 0.0F), 1.0F) * 255.0F + 0.5F);
    };
    QImage image(size, QImage::Format_RGBX8888);
    const qsizetype width = size.width();
    const qsizetype plane = width * size.height();
    for (int y = 0; y < image.height(); ++y) {
        auto *pixel = reinterpret_cast<std::uint32_t *>(image.scanLine(y));
        const float *red = planes.data() + y * width;
        for (qsizetype x = 0; x < width; ++x) {
            const std::uint32_t rgb = step(red[x]) | step(red[plane + x]) << 8 | step(red[2 * plane + x]) << 16;
            pixel[x] = rgb | 0xFF000000U;
        }
    }
    return notFinite != 0 ? QImage() : image;
}

} // namespace quorvane
