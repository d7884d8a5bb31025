#pragma once

#include <QByteArray>
#include <QImage>

namespace quorvane {

/// Decodes bytes of any format that Qt reads (an animation's first frame), upright as its EXIF orientation says, to
/// 8 bits: Format_RGBX8888 when every pixel is opaque, else Format_RGBA8888_Premultiplied. The picture keeps its colour
/// profile when that describes RGB, and is sRGB otherwise. Null when the bytes are no picture or one above
/// kLargestDecodedMebibytes. May be called on any thread.
[[nodiscard]] QImage decodeImage(QByteArray bytes);

/// The ICC profile to write beside the picture's pixels; empty means sRGB.
[[nodiscard]] QByteArray iccProfileOf(const QImage &image);

} // namespace quorvane
