#include "Platform/Desktops/DesktopPictureLxqt.h"

#include "Support/Desktop/PositionPicture.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(DesktopPictureLxqt, eachScreenIsFilledInOnePictureOfAll)
{
    constexpr QSize kSource(600, 500);
    constexpr QRect kLeft(-400, 50, 400, 200);
    constexpr QRect kRight(0, 0, 200, 300);
    const QImage all = DesktopPictureLxqt::composed(positionPicture(kSource, 70), {kLeft, kRight});
    ASSERT_EQ(all.size(), QSize(600, 300));
    EXPECT_EQ(differenceFromFill(all.copy(kLeft.translated(400, 0)), kSource, 70), QString());
    EXPECT_EQ(differenceFromFill(all.copy(kRight.translated(400, 0)), kSource, 70), QString());
    EXPECT_EQ(all.pixel(10, 10), qRgb(0, 0, 0)) << "above the left screen";
}

TEST(DesktopPictureLxqt, withoutScreensThereIsNoPicture)
{
    EXPECT_TRUE(DesktopPictureLxqt::composed(positionPicture(QSize(10, 10), 70), {}).isNull());
}

} // namespace quorvane
