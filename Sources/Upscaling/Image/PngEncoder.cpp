#include "Upscaling/Image/PngEncoder.h"

#include "Providers/ProviderError.h"

#include <QCoreApplication>

#include <spng.h>

#include <new>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(PngEncoder)
};

constexpr int kFastestDeflate = 1;

[[noreturn]] void fail()
{
    throw ProviderError::invalidResponse(Tr::tr("Failed to encode upscaled image"));
}

void require(int result)
{
    if (result != 0) {
        fail();
    }
}

/// Called from C, so nothing may be thrown through it.
int append(spng_ctx * /*context*/, void *file, void *bytes, std::size_t size)
{
    try {
        static_cast<QByteArray *>(file)->append(static_cast<const char *>(bytes), static_cast<qsizetype>(size));
        return 0;
    } catch (const std::bad_alloc &) {
        return SPNG_IO_ERROR;
    }
}

} // namespace

struct PngEncoder::Stream
{
    std::unique_ptr<spng_ctx, decltype(&spng_ctx_free)> context{spng_ctx_new(SPNG_CTX_ENCODER), &spng_ctx_free};
    QByteArray file;
    QByteArray profile;
    bool complete = false;
};

PngEncoder::PngEncoder(QSize size, PngPixels pixels, QByteArray iccProfile)
    : m_stream(std::make_unique<Stream>())
{
    spng_ctx *context = m_stream->context.get();
    if (context == nullptr || size.isEmpty()) {
        fail();
    }
    require(spng_set_png_stream(context, append, &m_stream->file));

    spng_ihdr header{};
    header.width = static_cast<std::uint32_t>(size.width());
    header.height = static_cast<std::uint32_t>(size.height());
    header.bit_depth = 8;
    header.color_type = pixels == PngPixels::Rgb ? SPNG_COLOR_TYPE_TRUECOLOR : SPNG_COLOR_TYPE_TRUECOLOR_ALPHA;
    require(spng_set_ihdr(context, &header));

    if (iccProfile.isEmpty()) {
        constexpr std::uint8_t kPerceptual = 0;
        require(spng_set_srgb(context, kPerceptual));
    } else {
        m_stream->profile = std::move(iccProfile);
        spng_iccp chunk{};
        qstrncpy(chunk.profile_name, "ICC profile", sizeof chunk.profile_name);
        chunk.profile_len = static_cast<std::size_t>(m_stream->profile.size());
        chunk.profile = m_stream->profile.data();
        require(spng_set_iccp(context, &chunk));
    }
    require(spng_set_option(context, SPNG_IMG_COMPRESSION_LEVEL, kFastestDeflate));
    require(spng_set_option(context, SPNG_FILTER_CHOICE, SPNG_FILTER_CHOICE_SUB));
    require(spng_encode_image(context, nullptr, 0, SPNG_FMT_PNG, SPNG_ENCODE_PROGRESSIVE | SPNG_ENCODE_FINALIZE));
}

PngEncoder::~PngEncoder() = default;

void PngEncoder::writeRow(std::span<const std::uint8_t> row)
{
    const int result = spng_encode_row(m_stream->context.get(), row.data(), row.size());
    m_stream->complete = result == SPNG_EOI;
    if (!m_stream->complete) {
        require(result);
    }
}

QByteArray PngEncoder::finish()
{
    if (!m_stream->complete) {
        fail();
    }
    return std::move(m_stream->file);
}

} // namespace quorvane
