#include "Unit/Upscaling/LocalUpscalerFixture.h"

#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/LocalUpscaler.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QColorSpace>

namespace quorvane {

namespace {

/// The pixels alone, for comparing: a PNG says of what colours they are, a tile does not.
QImage pixelsOf(QImage image)
{
    image.setColorSpace({});
    return image.convertToFormat(QImage::Format_RGB888);
}

} // namespace

TEST(LocalUpscaler, everyPixelEndsUpWhereItBelongs)
{
    const HomeWithModel home("nearest");
    for (const QSize size : {QSize(512, 512), QSize(513, 1), QSize(1, 1), QSize(1, 513), QSize(1024, 512),
                             QSize(1100, 700), QSize(1920, 1080)}) {
        const QImage source = positions(size.width(), size.height());
        const UpscaleOutcome outcome = upscale(encoded(source));
        EXPECT_EQ(text(outcome.error), "");
        EXPECT_EQ(text(outcome.extension), "png");
        EXPECT_EQ(text(firstDifference(decoded(outcome.png), source)), "") << size.width() << " x " << size.height();
        EXPECT_EQ(colorTypeOf(outcome.png), 2);
    }
}

TEST(LocalUpscaler, whoSaysHowFarItLooksSeesTheNeighboursAndLeavesNoSeam)
{
    SuperResolutionModel model(modelFile("reach"), 2);
    for (const QSize size : {QSize(1, 1), QSize(512, 512), QSize(513, 513), QSize(1, 1030), QSize(1100, 700)}) {
        const QImage source = decodeImage(encoded(positions(size.width(), size.height())));
        const QImage whole = upscaleTileWithModel(source, model, {});
        const QImage byTiles = decoded(tileUpscaleWithModel(source, model, {}));
        EXPECT_TRUE(pixelsOf(byTiles) == pixelsOf(whole)) << size.width() << " x " << size.height();
    }
}

TEST(LocalUpscaler, whoDoesNotSaySoGetsTheTileAlone)
{
    SuperResolutionModel model(modelFile("blurred"), 2);
    const QImage source = decodeImage(encoded(positions(513, 20)));
    const QImage byTiles = decoded(tileUpscaleWithModel(source, model, {}));
    const QImage tile = padImageToTile(source.copy(0, 0, 512, 20), 512, 512);
    const QImage alone = upscaleTileWithModel(tile, model, {});
    const QRect shown(0, 0, 2048, 80);
    EXPECT_TRUE(pixelsOf(byTiles.copy(shown)) == pixelsOf(alone.copy(shown)));
}

TEST(LocalUpscaler, theOtherAcceptedNetworksGiveTheSamePixels)
{
    const HomeWithModel home;
    const QImage source = positions(600, 40);
    for (const char *model : {"dynamic", "float16"}) {
        home.use(model);
        EXPECT_EQ(text(firstDifference(decoded(upscale(encoded(source)).png), source)), "") << model;
    }
}

TEST(LocalUpscaler, aJpegOrWebpBecomesAPng)
{
    const HomeWithModel home("nearest");
    const QImage source = positions(30, 20);
    for (const char *format : {"jpg", "webp"}) {
        const QByteArray bytes = encoded(source, format);
        const UpscaleOutcome outcome = upscale(bytes);
        EXPECT_TRUE(outcome.png.startsWith("\x89PNG"));
        EXPECT_EQ(text(outcome.extension), "png");
        EXPECT_EQ(text(firstDifference(decoded(outcome.png), decoded(bytes))), "") << format;
    }
}

TEST(LocalUpscaler, progressCountsEveryTileAndOnlyGoesForward)
{
    const HomeWithModel home("nearest");
    const UpscaleOutcome outcome = upscale(encoded(positions(1030, 600)));
    ASSERT_EQ(outcome.progress.size(), 7U);
    for (int tile = 0; tile <= 6; ++tile) {
        const UpscaleProgress &progress = outcome.progress[std::size_t(tile)];
        EXPECT_EQ(progress.tilesDone, tile);
        EXPECT_EQ(progress.tilesTotal, 6);
        EXPECT_EQ(progress.remaining.has_value(), tile > 0);
    }
    EXPECT_EQ(outcome.progress.back().remaining, std::chrono::milliseconds(0));
}

TEST(LocalUpscaler, theBytesDoNotDependOnTheNumberOfThreads)
{
    const HomeWithModel home("convolutions");
    const QImage image = decodeImage(encoded(positions(700, 530)));
    const QByteArray one = tileUpscaleImage(image, {.threads = 1});
    EXPECT_FALSE(one.isEmpty());
    EXPECT_NE(text(firstDifference(decoded(one), image)), "") << "the network must do more than copy";
    for (const int threads : {2, 3, 8}) {
        EXPECT_EQ(tileUpscaleImage(image, {.threads = threads}), one) << threads;
    }
}

TEST(LocalUpscaler, twoUpscalesAtATimeDoNotDisturbEachOther)
{
    const HomeWithModel home("nearest");
    const QImage one = positions(700, 30);
    const QImage other = positions(30, 1100);
    UpscaleOutcome second;
    const auto startSecond = [&] { second = upscale(encoded(other)); };
    const UpscaleOutcome first = upscale(encoded(one), {}, startSecond);
    EXPECT_EQ(text(firstDifference(decoded(first.png), one)), "");
    EXPECT_EQ(text(firstDifference(decoded(second.png), other)), "");
}

} // namespace quorvane
