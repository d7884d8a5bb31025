#include "Upscaling/Image/TilePixels.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace quorvane {

TEST(TilePixels, everyStepSurvivesTheWayThereAndBack)
{
    QImage image(256, 2, QImage::Format_RGBX8888);
    for (int x = 0; x < 256; ++x) {
        image.setPixel(x, 0, qRgb(x, 255 - x, x / 2));
        image.setPixel(x, 1, qRgb(7, x, 255));
    }
    std::vector<float> planes(3 * 512);
    planesFromTile(image, planes);
    EXPECT_FLOAT_EQ(planes[51], 0.2F);
    EXPECT_FLOAT_EQ(planes[512 + 51], 0.8F);
    EXPECT_FLOAT_EQ(planes[2 * 512 + 256], 1.0F);
    EXPECT_EQ(tileFromPlanes(planes, image.size()), image);
}

TEST(TilePixels, numbersAreRoundedAndClamped)
{
    const std::array<float, 12> planes{-1.0F, 2.0F, 0.5F, 1.0F, 0.4F / 255, 0.6F / 255, 0, 0, 0, 0, 0, 0};
    const QImage image = tileFromPlanes(planes, QSize(4, 1));
    EXPECT_EQ(image.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(1, 0), qRgb(255, 1, 0));
    EXPECT_EQ(image.pixel(2, 0), qRgb(128, 0, 0));
    EXPECT_EQ(image.pixel(3, 0), qRgb(255, 0, 0));
}

TEST(TilePixels, oneNumberThatIsNotFiniteSpoilsTheTile)
{
    using Limits = std::numeric_limits<float>;
    for (const float wrong : {Limits::quiet_NaN(), -Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()}) {
        std::vector<float> planes(3 * 64, 0.5F);
        planes[100] = wrong;
        EXPECT_TRUE(tileFromPlanes(planes, QSize(8, 8)).isNull());
    }
    for (const float extreme : {Limits::max(), Limits::lowest(), Limits::denorm_min(), -0.0F}) {
        std::vector<float> planes(3 * 64, 0.5F);
        planes[100] = extreme;
        EXPECT_FALSE(tileFromPlanes(planes, QSize(8, 8)).isNull());
    }
}

} // namespace quorvane
