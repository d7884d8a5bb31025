#include "Unit/Upscaling/LocalUpscalerFixture.h"

#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/LocalUpscaler.h"

#include <QColorSpace>

namespace quorvane {

TEST(LocalUpscaler, transparencyIsEnlargedBesideTheColors)
{
    const HomeWithModel home("nearest");
    QImage image(600, 40, QImage::Format_ARGB32);
    image.fill(qRgba(250, 125, 50, 102));
    for (int y = 0; y < 40; ++y) {
        for (int x = 300; x < 600; ++x) {
            image.setPixel(x, y, 0);
        }
    }
    const UpscaleOutcome outcome = upscale(encoded(image));
    ASSERT_EQ(text(outcome.error), "");
    EXPECT_EQ(colorTypeOf(outcome.png), 6);
    const QImage result = decoded(outcome.png).convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(result.size(), QSize(2400, 160));
    EXPECT_EQ(result.pixel(0, 0), qRgba(250, 125, 50, 102));
    EXPECT_EQ(result.pixel(1190, 100), qRgba(250, 125, 50, 102));
    EXPECT_EQ(qAlpha(result.pixel(1199, 100)), 64);
    EXPECT_EQ(result.pixel(1210, 100), 0U);
    EXPECT_EQ(result.pixel(2399, 159), 0U);
}

TEST(LocalUpscaler, theColorProfileGoesIntoTheResult)
{
    const HomeWithModel home("nearest");
    QImage image = positions(20, 20);
    EXPECT_EQ(decoded(upscale(encoded(image)).png).colorSpace(), QColorSpace(QColorSpace::SRgb));
    image.setColorSpace(QColorSpace::AdobeRgb);
    const QByteArray bytes = encoded(image);
    const QImage result = decoded(upscale(bytes).png);
    EXPECT_EQ(result.colorSpace(), QColorSpace(QColorSpace::AdobeRgb));
    EXPECT_EQ(result.colorSpace().iccProfile(), QImage::fromData(bytes).colorSpace().iccProfile());
    EXPECT_EQ(text(firstDifference(result, image)), "");
}

TEST(LocalUpscaler, paddingIsZeroRightAndBelow)
{
    QImage image(3, 2, QImage::Format_RGBA8888_Premultiplied);
    image.fill(Qt::white);
    const QImage padded = padImageToTile(image, 5, 4);
    EXPECT_EQ(padded.size(), QSize(5, 4));
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 5; ++x) {
            EXPECT_EQ(padded.pixel(x, y), x < 3 && y < 2 ? 0xFFFFFFFFU : 0U);
        }
    }
    EXPECT_EQ(padImageToTile(image, 3, 2).cacheKey(), image.cacheKey());
}

} // namespace quorvane
