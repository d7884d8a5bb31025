#pragma once

#include <QByteArray>
#include <QImage>

namespace quorvane {

/// How an X server wants the pixels of its root window's depth.
struct X11PixelFormat
{
    int depth = 24;           ///< Meaningful bits of a pixel.
    int bitsPerPixel = 32;    ///< 16, 24 or 32.
    int scanlinePadBits = 32; ///< Every row begins at a multiple of this.
    bool isLowByteFirst = true;
    quint32 redMask = 0xff0000;
    quint32 greenMask = 0x00ff00;
    quint32 blueMask = 0x0000ff;

    /// Whether packedRows() can make it: true colour of 15 or more bits.
    [[nodiscard]] bool isSupported() const;

    /// The bytes of one row of width pixels, padding included.
    [[nodiscard]] qsizetype bytesPerRow(int width) const;
};

/// Rows of the image (of Format_RGB32 or Format_ARGB32_Premultiplied, whose transparent parts come out over black) as
/// the server wants them, one after the other.
[[nodiscard]] QByteArray packedRows(const QImage &image, int firstRow, int rowCount, const X11PixelFormat &format);

} // namespace quorvane
