#include "Unit/Upscaling/Gpu/GpuFixture.h"

#include <thread>

namespace quorvane {

TEST(Gpu, isNotUsedWhenTheTrialGoesWrong)
{
    for (const char *behaviour :
         {"crash", "too-little", "nothing", "too-much", "no-numbers", "black", "slightly-off"}) {
        for (const int tile : {1, 2}) {
            const CardRun run = upscaleWith(cardThat(behaviour, tile));
            EXPECT_FALSE(run.passedTrial) << behaviour << ' ' << tile;
            EXPECT_EQ(text(firstDifference(run.picture, fourTiles())), "") << behaviour << ' ' << tile;
        }
    }
}

TEST(Gpu, isNotUsedWhenItIsSlower)
{
    GpuRules rules = kAnyTime;
    rules.largestShare = 0;
    const CardRun run = upscaleWith(cardThat("brighter", 3), rules);
    EXPECT_FALSE(run.passedTrial);
    EXPECT_EQ(text(firstDifference(run.picture, fourTiles())), "");
}

TEST(Gpu, whatItFailsAtIsDoneByTheProcessor)
{
    for (const char *behaviour : {"crash", "too-little", "nothing", "too-much", "no-numbers", "black"}) {
        for (const int tile : {3, 4}) {
            const CardRun run = upscaleWith(cardThat(behaviour, tile));
            EXPECT_TRUE(run.passedTrial) << behaviour << ' ' << tile;
            EXPECT_FALSE(run.inUseAtTheEnd) << behaviour << ' ' << tile;
            EXPECT_EQ(text(firstDifference(run.picture, fourTiles())), "") << behaviour << ' ' << tile;
        }
    }
    EXPECT_TRUE(childProcesses().isEmpty());
}

TEST(Gpu, isLeftWhenItHangs)
{
    GpuRules rules = kAnyTime;
    rules.leastTileLimit = seconds(5);
    const CardRun run = upscaleWith(cardThat("hang", 3), rules);
    EXPECT_TRUE(run.passedTrial);
    EXPECT_FALSE(run.inUseAtTheEnd);
    EXPECT_EQ(text(firstDifference(run.picture, fourTiles())), "");
    EXPECT_TRUE(childProcesses().isEmpty());
}

TEST(Gpu, aTrialThatHangsHoldsNothingUp)
{
    SuperResolutionModel model(kNetwork, 2);
    const QImage source = decodeImage(encoded(fourTiles()));
    QByteArray png;
    {
        Gpu card(cardThat("hang", 1), kNetwork, {}, kAnyTime);
        png = tileUpscaleWithModel(source, model, card, {});
        EXPECT_EQ(childProcesses().size(), 1);
    }
    EXPECT_EQ(text(firstDifference(decoded(png), fourTiles())), "");
    EXPECT_TRUE(childProcesses().isEmpty());
}

TEST(Gpu, aStopRequestEndsItInsideATile)
{
    std::stop_source stop;
    std::jthread other;
    const auto stopSoon = [&] { other = std::jthread([&stop] { stop.request_stop(); }); };
    EXPECT_THROW(static_cast<void>(upscaleWith(cardThat("hang", 3), kAnyTime, stop.get_token(), stopSoon)),
                 UpscaleStopped);
    EXPECT_TRUE(childProcesses().isEmpty());
}

TEST(Gpu, isNotStartedForTheLastTileOrOneThatTellsNothing)
{
    Gpu card(cardThat("right", 1), kNetwork, {}, kAnyTime);
    const QImage tile = positions(512, 512).convertToFormat(QImage::Format_RGBX8888);
    card.processorDid(tile, tile, seconds(1), 0);
    EXPECT_TRUE(childProcesses().isEmpty());
    card.processorDid(flat(qRgb(0, 0, 0)), tile, seconds(1), 9);
    EXPECT_TRUE(childProcesses().isEmpty());
    card.processorDid(tile, tile, seconds(1), 9);
    EXPECT_EQ(childProcesses().size(), 1);
}

TEST(Gpu, webGpuWithoutACardChangesNothing)
{
    qputenv("VK_DRIVER_FILES", "/nowhere/driver.json");
    qputenv("VK_ICD_FILENAMES", "/nowhere/driver.json");
    const CardRun run = upscaleWith(realCard("WebGpuExecutionProvider"));
    qunsetenv("VK_DRIVER_FILES");
    qunsetenv("VK_ICD_FILENAMES");
    EXPECT_FALSE(run.passedTrial);
    EXPECT_EQ(text(firstDifference(run.picture, fourTiles())), "");
}

} // namespace quorvane
