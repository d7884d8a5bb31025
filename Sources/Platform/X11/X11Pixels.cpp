#include "Platform/X11/X11Pixels.h"

#include <array>
#include <bit>

namespace quorvane {

namespace {

/// For each colour of 8 bits: moved into the mask's place, with as many bits as the mask has.
std::array<quint32, 256> placedColours(quint32 mask)
{
    std::array<quint32, 256> table{};
    const int bits = std::popcount(mask);
    for (quint32 colour = 0; colour < table.size(); ++colour) {
        const quint32 value = bits <= 8 ? colour >> (8 - bits) : (colour << (bits - 8)) | (colour >> (16 - bits));
        table[colour] = value << std::countr_zero(mask);
    }
    return table;
}

/// Whether the mask is one run of 1 to 16 bits.
bool isUsableMask(quint32 mask)
{
    const int bits = std::popcount(mask);
    return bits >= 1 && bits <= 16 && bits + std::countl_zero(mask) + std::countr_zero(mask) == 32;
}

} // namespace

bool X11PixelFormat::isSupported() const
{
    const bool isKnownSize = bitsPerPixel == 16 || bitsPerPixel == 24 || bitsPerPixel == 32;
    return isKnownSize && scanlinePadBits >= 8 && depth >= 15 && depth <= bitsPerPixel && isUsableMask(redMask) &&
           isUsableMask(greenMask) && isUsableMask(blueMask);
}

qsizetype X11PixelFormat::bytesPerRow(int width) const
{
    const qsizetype bits = qsizetype(width) * bitsPerPixel;
    return (bits + scanlinePadBits - 1) / scanlinePadBits * scanlinePadBits / 8;
}

QByteArray packedRows(const QImage &image, int firstRow, int rowCount, const X11PixelFormat &format)
{
    const qsizetype rowBytes = format.bytesPerRow(image.width());
    const int pixelBytes = format.bitsPerPixel / 8;
    // Bits of the depth that are no colour are opacity, where the server has any.
    const quint32 depthMask = format.depth >= 32 ? 0xffffffffU : (1U << format.depth) - 1;
    const quint32 opaque = depthMask & ~(format.redMask | format.greenMask | format.blueMask);
    const std::array<quint32, 256> reds = placedColours(format.redMask);
    const std::array<quint32, 256> greens = placedColours(format.greenMask);
    const std::array<quint32, 256> blues = placedColours(format.blueMask);
    QByteArray bytes(rowBytes * rowCount, '\0');
    for (int row = 0; row < rowCount; ++row) {
        const auto *source = reinterpret_cast<const QRgb *>(image.constScanLine(firstRow + row));
        auto *target = reinterpret_cast<uchar *>(bytes.data()) + row * rowBytes;
        for (int column = 0; column < image.width(); ++column) {
            const QRgb pixel = source[column];
            const quint32 value =
                opaque | reds[(pixel >> 16) & 0xff] | greens[(pixel >> 8) & 0xff] | blues[pixel & 0xff];
            for (int byte = 0; byte < pixelBytes; ++byte) {
                const int place = format.isLowByteFirst ? byte : pixelBytes - 1 - byte;
                *target++ = static_cast<uchar>(value >> (8 * place));
            }
        }
    }
    return bytes;
}

} // namespace quorvane
