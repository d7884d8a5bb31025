#include "Unit/Upscaling/Gpu/GpuFixture.h"

namespace quorvane {

TEST(Gpu, isTriedWhereEnoughWorkIsLeft)
{
    const GpuRules rules;
    EXPECT_TRUE(rules.isWorthTrying(seconds(1), 5));
    EXPECT_TRUE(rules.isWorthTrying(milliseconds(500), 39));
    EXPECT_TRUE(rules.isWorthTrying(seconds(20), 1));
    EXPECT_FALSE(rules.isWorthTrying(seconds(1), 4));
    EXPECT_FALSE(rules.isWorthTrying(hours(1), 0));
    EXPECT_FALSE(kAnyTime.isWorthTrying(hours(1), 0));
}

TEST(Gpu, mustBeClearlyFasterThanTheProcessor)
{
    const GpuRules rules;
    EXPECT_TRUE(rules.isFaster(milliseconds(10), milliseconds(1000)));
    EXPECT_TRUE(rules.isFaster(milliseconds(666), milliseconds(1000)));
    EXPECT_FALSE(rules.isFaster(milliseconds(667), milliseconds(1000)));
    EXPECT_FALSE(rules.isFaster(milliseconds(1), milliseconds(0)));
}

TEST(Gpu, getsAsLongForATileAsTheProcessorTakes)
{
    const GpuRules rules;
    EXPECT_EQ(rules.tileLimit(seconds(9)), seconds(9));
    EXPECT_EQ(rules.tileLimit(milliseconds(50)), seconds(1));
}

TEST(Gpu, aTileOfOneColorTellsNothing)
{
    EXPECT_FALSE(isTelling(flat(qRgb(0, 0, 0))));
    EXPECT_FALSE(isTelling(flat(qRgb(200, 190, 210))));
    EXPECT_TRUE(isTelling(positions(512, 512).convertToFormat(QImage::Format_RGBX8888)));
}

TEST(Gpu, agreementMeansTwoStepsAtMost)
{
    EXPECT_TRUE(agree(flat(qRgb(10, 20, 30)), flat(qRgb(10, 20, 30))));
    EXPECT_TRUE(agree(flat(qRgb(10, 20, 30)), flat(qRgb(12, 18, 30))));
    EXPECT_FALSE(agree(flat(qRgb(10, 20, 30)), flat(qRgb(10, 20, 33))));
    QImage onePixel = flat(qRgb(10, 20, 30));
    onePixel.setPixel(511, 511, qRgb(10, 17, 30));
    EXPECT_FALSE(agree(flat(qRgb(10, 20, 30)), onePixel));
    EXPECT_FALSE(agree(flat(qRgb(10, 20, 30)), QImage()));
    EXPECT_FALSE(agree(QImage(), flat(qRgb(10, 20, 30))));
}

TEST(Gpu, doesTheLaterTilesOnceItProvedItself)
{
    const CardRun run = upscaleWith(cardThat("brighter", 3));
    EXPECT_TRUE(run.passedTrial);
    EXPECT_TRUE(run.inUseAtTheEnd);
    // One step tells who did it.
    EXPECT_EQ(run.picture.pixel(2047, 0), qRgb(255, 0, 16));
    EXPECT_EQ(run.picture.pixel(2048, 0), qRgb(1, 1, 33));
    EXPECT_EQ(run.picture.pixel(4 * 1999, 159), qRgb(1999 % 256 + 1, 40, 7 * 16 + 1));
    EXPECT_TRUE(childProcesses().isEmpty());
}

TEST(Gpu, theRealWorkerGivesTheSamePicture)
{
    const CardRun run = upscaleWith(realCard("CPUExecutionProvider"));
    EXPECT_TRUE(run.passedTrial);
    EXPECT_TRUE(run.inUseAtTheEnd);
    EXPECT_EQ(text(firstDifference(run.picture, fourTiles())), "");
}

} // namespace quorvane
