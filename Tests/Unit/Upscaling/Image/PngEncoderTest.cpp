#include "Upscaling/Image/PngEncoder.h"
#include "Providers/ProviderError.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"

#include <QColorSpace>

#include <gtest/gtest.h>

namespace quorvane {

namespace {

constexpr auto kFailed = "Invalid response: Failed to encode upscaled image";

QByteArray encodedByUs(const QImage &image, const QByteArray &profile = {})
{
    const bool alpha = image.format() == QImage::Format_RGBA8888;
    PngEncoder encoder(image.size(), alpha ? PngPixels::Rgba : PngPixels::Rgb, profile);
    for (int y = 0; y < image.height(); ++y) {
        encoder.writeRow({image.constScanLine(y), static_cast<std::size_t>(image.width()) * (alpha ? 4 : 3)});
    }
    return encoder.finish();
}

} // namespace

TEST(PngEncoder, writesExactlyThePixelsItGets)
{
    QImage opaque = positions(301, 17).convertToFormat(QImage::Format_RGB888);
    opaque.setColorSpace(QColorSpace::SRgb);
    EXPECT_EQ(decoded(encodedByUs(opaque)).convertToFormat(QImage::Format_RGB888), opaque);

    QImage transparent(3, 2, QImage::Format_RGBA8888);
    transparent.fill(QColor(200, 100, 50, 3));
    transparent.setPixelColor(1, 1, QColor(1, 2, 3, 0));
    transparent.setColorSpace(QColorSpace::SRgb);
    EXPECT_EQ(decoded(encodedByUs(transparent)).convertToFormat(QImage::Format_RGBA8888), transparent);
}

TEST(PngEncoder, writesTheColorProfileOrSrgb)
{
    QImage image(2, 2, QImage::Format_RGB888);
    image.fill(Qt::red);
    const QByteArray profile = QColorSpace(QColorSpace::DisplayP3).iccProfile();
    EXPECT_EQ(decoded(encodedByUs(image, profile)).colorSpace().iccProfile(), profile);
    EXPECT_EQ(decoded(encodedByUs(image)).colorSpace(), QColorSpace(QColorSpace::SRgb));
}

TEST(PngEncoder, aPictureWithoutPixelsFails)
{
    EXPECT_EQ(text(thrown<ProviderError>([] { PngEncoder(QSize(0, 4), PngPixels::Rgb, {}); })), kFailed);
}

TEST(PngEncoder, aRowThatIsTooShortFails)
{
    PngEncoder encoder(QSize(4, 4), PngPixels::Rgb, {});
    const std::uint8_t row[11]{};
    EXPECT_EQ(text(thrown<ProviderError>([&] { encoder.writeRow(row); })), kFailed);
}

TEST(PngEncoder, aMissingRowFails)
{
    PngEncoder encoder(QSize(4, 2), PngPixels::Rgb, {});
    const std::uint8_t row[12]{};
    encoder.writeRow(row);
    EXPECT_EQ(text(thrown<ProviderError>([&] { static_cast<void>(encoder.finish()); })), kFailed);
}

} // namespace quorvane
