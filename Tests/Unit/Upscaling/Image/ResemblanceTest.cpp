#include "Upscaling/Image/Resemblance.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

QImage enlarged(const QImage &image)
{
    return image.scaled(image.size() * 4).convertToFormat(QImage::Format_RGB888);
}

QImage plain(QColor color, QSize size = {100, 100})
{
    QImage image(size, QImage::Format_RGBX8888);
    image.fill(color);
    return image;
}

bool alike(const QImage &source, const QImage &result)
{
    return resembles(source.convertToFormat(QImage::Format_RGBX8888), source.rect(), result, QPoint(0, 0));
}

} // namespace

TEST(Resemblance, aFaithfulEnlargementResembles)
{
    const QImage source = positions(300, 200);
    EXPECT_TRUE(alike(source, enlarged(source)));
}

TEST(Resemblance, aBlackResultOnlyResemblesABlackSource)
{
    EXPECT_FALSE(alike(positions(300, 200), enlarged(plain(Qt::black, {300, 200}))));
    EXPECT_TRUE(alike(plain(Qt::black), enlarged(plain(Qt::black))));
}

TEST(Resemblance, theSamePixelsInOtherPlacesDoNotResemble)
{
    const QImage source = positions(300, 200);
    EXPECT_FALSE(alike(source, enlarged(source.mirrored(true, false))));
}

TEST(Resemblance, theToleranceIsTwentyFourSteps)
{
    EXPECT_TRUE(alike(plain(QColor(100, 100, 100)), enlarged(plain(QColor(124, 76, 100)))));
    EXPECT_FALSE(alike(plain(QColor(100, 100, 100)), enlarged(plain(QColor(125, 125, 125)))));
}

TEST(Resemblance, aThinPartMayHaveTakenOnThePaddingsBlack)
{
    const QSize thin(1, 100);
    EXPECT_TRUE(alike(plain(QColor(200, 200, 200), thin), enlarged(plain(QColor(110, 110, 110), thin))));
    EXPECT_FALSE(alike(plain(QColor(200, 200, 200), thin), enlarged(plain(Qt::black, thin))));
}

TEST(Resemblance, onlyThePartAskedForCounts)
{
    QImage source = plain(Qt::white, {200, 100});
    QImage result(300, 400, QImage::Format_RGB888);
    result.fill(Qt::black);
    for (int y = 0; y < 400; ++y) {
        for (int x = 100; x < 300; ++x) {
            result.setPixel(x, y, qRgb(255, 255, 255));
        }
    }
    EXPECT_TRUE(resembles(source, QRect(120, 0, 50, 100), result, QPoint(100, 0)));
    EXPECT_FALSE(resembles(source, QRect(120, 0, 50, 100), result, QPoint(0, 0)));
}

} // namespace quorvane
