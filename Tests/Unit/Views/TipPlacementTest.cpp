#include "Views/Tips/TipPlacement.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

constexpr QSizeF kWindow(760, 480);

QRectF placed(const QRectF &item, const QSizeF &wanted, bool isMirrored = false)
{
    return TipPlacement::place(item, wanted, kWindow, isMirrored);
}

} // namespace

TEST(TipPlacement, itStandsOverTheMiddleOfWhatItExplains)
{
    EXPECT_EQ(placed({300, 200, 200, 20}, {100, 30}), QRectF(350, 166, 100, 30));
}

TEST(TipPlacement, oneThatIsWiderBeginsWhereTheTextBegins)
{
    EXPECT_EQ(placed({300, 200, 40, 20}, {360, 30}).left(), 300);
    EXPECT_EQ(placed({600, 200, 40, 20}, {360, 30}, true).right(), 640);
}

TEST(TipPlacement, oneThatHasNoRoomOnThatSideEndsWhereTheTextEnds)
{
    EXPECT_EQ(placed({600, 200, 140, 20}, {360, 30}).right(), 740);
    EXPECT_EQ(placed({20, 200, 140, 20}, {360, 30}, true).left(), 20);
}

TEST(TipPlacement, withoutRoomAboveItStandsBelow)
{
    EXPECT_EQ(placed({300, 20, 200, 20}, {100, 30}).top(), 44);
    EXPECT_EQ(placed({300, 40, 200, 20}, {100, 30}).bottom(), 36);
}

TEST(TipPlacement, oneThatIsLongerThanTheRoomTakesTheLargerRoom)
{
    const QRectF above = placed({300, 300, 200, 20}, {360, 2000});
    EXPECT_EQ(above, QRectF(300, 6, 360, 290));
    const QRectF below = placed({300, 100, 200, 20}, {360, 2000});
    EXPECT_EQ(below, QRectF(300, 124, 360, 350));
}

TEST(TipPlacement, itNeverLeavesTheWindow)
{
    const QRectF whole(QPointF(), kWindow);
    for (double x = -50; x < 800; x += 37) {
        for (double width : {10.0, 200.0, 360.0, 2000.0}) {
            for (const bool isMirrored : {false, true}) {
                EXPECT_TRUE(whole.contains(placed({x, 240, 60, 20}, {width, 600}, isMirrored))) << x << ' ' << width;
            }
        }
    }
}

} // namespace quorvane
