#include "Platform/Pictures/FillCrop.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quorvane {

TEST(FillCrop, theCropIsTheLargestPartOfTheTargetsShapeAroundTheCentre)
{
    struct Case
    {
        QSize source;
        QSize target;
        QRect crop;
    };
    const Case cases[] = {
        {QSize(1920, 1080), QSize(1920, 1080), QRect(0, 0, 1920, 1080)},
        {QSize(3840, 2160), QSize(1920, 1080), QRect(0, 0, 3840, 2160)},
        {QSize(960, 540), QSize(1920, 1080), QRect(0, 0, 960, 540)},
        {QSize(1024, 1024), QSize(1920, 1080), QRect(0, 224, 1024, 576)},
        {QSize(1024, 1024), QSize(1080, 1920), QRect(224, 0, 576, 1024)},
        {QSize(2000, 1000), QSize(500, 500), QRect(500, 0, 1000, 1000)},
        {QSize(1000, 2000), QSize(500, 500), QRect(0, 500, 1000, 1000)},
        {QSize(1000, 500), QSize(800, 600), QRect(166, 0, 667, 500)},
        {QSize(1, 1), QSize(1920, 1080), QRect(0, 0, 1, 1)},
        {QSize(1, 1000), QSize(1920, 1080), QRect(0, 499, 1, 1)},
        {QSize(100'000, 100'000), QSize(32767, 1), QRect(0, 49'998, 100'000, 3)},
        {QSize(0, 10), QSize(10, 10), QRect()},
        {QSize(10, 10), QSize(10, 0), QRect()},
        {QSize(), QSize(10, 10), QRect()},
    };
    for (const Case &each : cases) {
        EXPECT_EQ(fillRectangle(each.source, each.target), each.crop)
            << each.source.width() << "x" << each.source.height() << " to " << each.target.width() << "x"
            << each.target.height();
    }
}

TEST(FillCrop, everyCropLiesInsideTouchesTwoEdgesAndHasTheTargetsShapeToHalfAPixel)
{
    for (int width = 1; width < 200; width += 7) {
        for (int height = 1; height < 200; height += 5) {
            const QSize source(width, height);
            const QSize target(37, 23);
            const QRect crop = fillRectangle(source, target);
            ASSERT_TRUE(QRect(QPoint(), source).contains(crop));
            ASSERT_TRUE(crop.width() == width || crop.height() == height);
            ASSERT_LE(std::abs(crop.left() - (width - 1 - crop.right())), 1) << "centred";
            ASSERT_LE(std::abs(crop.top() - (height - 1 - crop.bottom())), 1) << "centred";
            const double exactWidth = crop.height() * 37.0 / 23;
            const double exactHeight = crop.width() * 23.0 / 37;
            ASSERT_TRUE(std::abs(crop.width() - exactWidth) <= 0.5 || std::abs(crop.height() - exactHeight) <= 0.5);
        }
    }
}

TEST(FillCrop, thePictureHasExactlyTheTargetsSizeAndTheCropsPixels)
{
    QImage source(400, 200, QImage::Format_RGB32);
    source.fill(Qt::red);
    for (int y = 0; y < 200; ++y) {
        for (int x = 100; x < 300; ++x) {
            source.setPixel(x, y, x < 200 ? qRgb(0, 255, 0) : qRgb(0, 0, 255));
        }
    }
    const QImage filled = filledPicture(source, QSize(50, 50));
    ASSERT_EQ(filled.size(), QSize(50, 50));
    for (const int y : {0, 25, 49}) {
        EXPECT_EQ(filled.pixel(0, y), qRgb(0, 255, 0)) << "nothing of the red sides is left";
        EXPECT_EQ(filled.pixel(23, y), qRgb(0, 255, 0));
        EXPECT_EQ(filled.pixel(26, y), qRgb(0, 0, 255));
        EXPECT_EQ(filled.pixel(49, y), qRgb(0, 0, 255));
    }
    EXPECT_TRUE(filledPicture(QImage(), QSize(50, 50)).isNull());
    EXPECT_TRUE(filledPicture(source, QSize()).isNull());
}

} // namespace quorvane
