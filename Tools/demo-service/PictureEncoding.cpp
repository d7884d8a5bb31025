#include "demo-service/PictureEncoding.h"

#include <QBuffer>
#include <QImageWriter>

#include <spng.h>

#include <cstdlib>
#include <memory>

namespace quorvane {

namespace {

/// Qt's own writer tries every filter on every row, which takes seconds for a 4K picture. One filter and the fastest
/// compression give a file of much the same size for a picture with grain.
QByteArray encodePng(const QImage &image)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    const auto freeContext = [](spng_ctx *context) { spng_ctx_free(context); };
    const std::unique_ptr<spng_ctx, decltype(freeContext)> context(spng_ctx_new(SPNG_CTX_ENCODER), freeContext);
    spng_set_option(context.get(), SPNG_ENCODE_TO_BUFFER, 1);
    spng_set_option(context.get(), SPNG_IMG_COMPRESSION_LEVEL, 1);
    spng_set_option(context.get(), SPNG_FILTER_CHOICE, SPNG_FILTER_CHOICE_SUB);
    spng_ihdr header{};
    header.width = static_cast<uint32_t>(rgb.width());
    header.height = static_cast<uint32_t>(rgb.height());
    header.bit_depth = 8;
    header.color_type = SPNG_COLOR_TYPE_TRUECOLOR;
    spng_set_ihdr(context.get(), &header);

    // QImage pads its rows, so they are handed over one by one.
    int error =
        spng_encode_image(context.get(), nullptr, 0, SPNG_FMT_PNG, SPNG_ENCODE_PROGRESSIVE | SPNG_ENCODE_FINALIZE);
    for (int y = 0; y < rgb.height() && error == 0; ++y) {
        error = spng_encode_row(context.get(), rgb.constScanLine(y), static_cast<size_t>(rgb.width()) * 3);
    }
    size_t size = 0;
    const std::unique_ptr<void, decltype(&std::free)> bytes(spng_get_png_buffer(context.get(), &size, &error),
                                                            &std::free);
    return bytes ? QByteArray(static_cast<const char *>(bytes.get()), static_cast<qsizetype>(size)) : QByteArray();
}

} // namespace

QByteArray encodePicture(const QImage &image, const char *format)
{
    if (qstrcmp(format, "png") == 0) {
        return encodePng(image);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    writer.setQuality(92);
    writer.write(image);
    return bytes;
}

} // namespace quorvane
