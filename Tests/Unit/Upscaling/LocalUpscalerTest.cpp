#include "Upscaling/LocalUpscaler.h"
#include "Providers/ProviderError.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/Image/TileGrid.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QColorSpace>

#include <gtest/gtest.h>

namespace quorvane {

namespace {

/// Byte 25 of a PNG: 2 for three colours, 6 for three colours and alpha.
int colorTypeOf(const QByteArray &png)
{
    return png.size() > 25 ? png.at(25) : -1;
}

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

TEST(LocalUpscaler, bytesThatAreNoPictureFailBeforeTheModelIsLookedFor)
{
    const HomeWithModel home;
    EXPECT_EQ(text(upscale("no picture").error), "Invalid response: Failed to decode image for upscaling");
    EXPECT_EQ(text(upscale({}).error), "Invalid response: Failed to decode image for upscaling");
}

TEST(LocalUpscaler, aMissingModelFailsBeforeAnyTile)
{
    const HomeWithModel home;
    const UpscaleOutcome outcome = upscale(encoded(positions(4, 4)));
    EXPECT_EQ(text(outcome.error), "Invalid response: RealESRGAN model not found in app bundle");
    EXPECT_TRUE(outcome.progress.empty());
}

TEST(LocalUpscaler, whatTheEngineSaysIsPassedOn)
{
    const HomeWithModel home("garbage");
    EXPECT_NE(text(upscale(encoded(positions(4, 4))).error).find("protobuf parsing failed"), std::string::npos);
    home.use("no-picture");
    EXPECT_EQ(text(upscale(encoded(positions(4, 4))).error),
              "Invalid response: Failed to convert upscaled tile to CGImage");
}

TEST(LocalUpscaler, aNetworkThatGivesNoNumbersFails)
{
    const HomeWithModel home("not-a-number");
    EXPECT_EQ(text(upscale(encoded(positions(600, 10))).error),
              "Invalid response: The RealESRGAN model gave values that are not numbers for the tile at (0, 0)");
}

TEST(LocalUpscaler, aBlackResultFailsUnlessTheSourceIsBlack)
{
    const HomeWithModel home("black");
    EXPECT_EQ(text(upscale(encoded(positions(300, 300))).error),
              "Invalid response: The upscaled image does not resemble the original at tile (0, 0)");
    QImage black(40, 40, QImage::Format_RGB32);
    black.fill(Qt::black);
    EXPECT_EQ(text(upscale(encoded(black)).error), "");
}

TEST(LocalUpscaler, aCanvasBeyondItsBoundFailsBeforeAnyTile)
{
    const HomeWithModel home("nearest");
    QImage wide(257 * 512, 1, QImage::Format_Grayscale8);
    wide.fill(9);
    const UpscaleOutcome outcome = upscale(encoded(wide));
    EXPECT_EQ(text(outcome.error), "Invalid response: Failed to create output context");
    EXPECT_TRUE(outcome.progress.empty());
}

TEST(LocalUpscaler, aStopRequestEndsItWithTheTile)
{
    const HomeWithModel home("nearest");
    std::stop_source stop;
    int tiles = 0;
    const auto stopAfterTwo = [&](UpscaleProgress progress) {
        tiles = progress.tilesDone;
        if (tiles == 2) {
            stop.request_stop();
        }
    };
    const QImage image = decodeImage(encoded(positions(1030, 600)));
    const TileUpscaleOptions options{.threads = 1, .stop = stop.get_token(), .onProgress = stopAfterTwo};
    EXPECT_THROW(static_cast<void>(tileUpscaleImage(image, options)), UpscaleStopped);
    EXPECT_EQ(tiles, 2);

    const UpscaleOutcome outcome = upscale(encoded(positions(1030, 600)), stop.get_token());
    EXPECT_EQ(text(outcome.error), "The upscale was stopped");
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

TEST(LocalUpscaler, paddingThatCannotBeHadFails)
{
    const QImage image(3, 2, QImage::Format_RGBA8888_Premultiplied);
    EXPECT_EQ(text(thrown<ProviderError>([&] { static_cast<void>(padImageToTile(image, 1 << 30, 1 << 30)); })),
              "Invalid response: Failed to create padding context");
}

} // namespace quorvane
