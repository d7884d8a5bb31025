#include "Unit/Upscaling/LocalUpscalerFixture.h"

#include "Providers/ProviderError.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/LocalUpscaler.h"

namespace quorvane {

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

TEST(LocalUpscaler, paddingThatCannotBeHadFails)
{
    const QImage image(3, 2, QImage::Format_RGBA8888_Premultiplied);
    EXPECT_EQ(text(thrown<ProviderError>([&] { static_cast<void>(padImageToTile(image, 1 << 30, 1 << 30)); })),
              "Invalid response: Failed to create padding context");
}

} // namespace quorvane
