#include "Upscaling/Gpu/Gpu.h"
#include "Support/WaitFor.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <gtest/gtest.h>

#include <thread>

namespace quorvane {

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;

/// Whatever takes as long as it likes is tried and counts as faster.
constexpr GpuRules kAnyTime{
    .leastWork = milliseconds(0), .largestShare = 1e9, .trialLimit = hours(1), .leastTileLimit = hours(1)};

const QString kNetwork = QStringLiteral(QUORVANE_TEST_DATA "/models/nearest.onnx");

/// Misbehaves from the tile of that number on. The trial takes two.
GpuProgram cardThat(const char *behaviour, int tile)
{
    return {QStringLiteral(GPU_WORKER_DOUBLE), {QLatin1String(behaviour), QString::number(tile)}};
}

GpuProgram realCard(const char *provider)
{
    return {QStringLiteral(GPU_WORKER), {QLatin1String(provider)}};
}

/// Four tiles, the last of them with padding.
QImage fourTiles()
{
    return positions(2000, 40);
}

struct CardRun
{
    QImage picture;
    bool passedTrial = false;
    bool inUseAtTheEnd = false;
};

/// Enlarges the picture, waiting after its first tile until it is decided whether the card is used.
CardRun upscaleWith(const GpuProgram &program, const GpuRules &rules = kAnyTime, const std::stop_token &stop = {},
                    const std::function<void()> &onceInUse = {})
{
    CardRun run;
    SuperResolutionModel model(kNetwork, 2);
    Gpu card(program, kNetwork, stop, rules);
    const auto decide = [&](UpscaleProgress progress) {
        if (progress.tilesDone == 1) {
            EXPECT_TRUE(waitFor([&] { return card.isInUse() || childProcesses().isEmpty(); }, std::chrono::minutes(2)));
            run.passedTrial = card.isInUse();
            if (onceInUse) {
                onceInUse();
            }
        }
    };
    const QImage source = decodeImage(encoded(fourTiles()));
    run.picture = decoded(tileUpscaleWithModel(source, model, card, {.stop = stop, .onProgress = decide}));
    run.inUseAtTheEnd = card.isInUse();
    return run;
}

QImage flat(QRgb color)
{
    QImage image(512, 512, QImage::Format_RGBX8888);
    image.fill(color);
    return image;
}

} // namespace

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
