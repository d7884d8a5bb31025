#include "Unit/Upscaling/Network/SuperResolutionModelFixture.h"

#include "Upscaling/Network/SuperResolutionModel.h"

namespace quorvane {

TEST(SuperResolutionModel, runsWhatFits)
{
    const std::vector<float> tile = modelTile();
    for (const char *name : {"nearest", "dynamic", "float16"}) {
        SuperResolutionModel model(modelFile(name), 2);
        const auto result = model.run(tile, {});
        ASSERT_EQ(result.size(), std::size_t(3) * 2048 * 2048);
        // Some places in every plane; float16 has eleven bits.
        for (const std::size_t place : {0U, 300U * 512U + 7U, 262144U + 511U, 2U * 262144U + 262143U}) {
            const std::size_t plane = place / 262144;
            const std::size_t y = place % 262144 / 512;
            const std::size_t x = place % 512;
            EXPECT_NEAR(result[plane * 4194304 + (4 * y + 3) * 2048 + 4 * x + 2], tile[place], 0.0005) << name;
        }
    }
}

TEST(SuperResolutionModel, saysWhatItIs)
{
    EXPECT_EQ(text(SuperResolutionModel(modelFile("nearest"), 1).description()),
              "float32, tiles of 512 × 512, in \"tile\", out \"result\"");
    EXPECT_EQ(text(SuperResolutionModel(modelFile("float16"), 1).description()),
              "float16, tiles of 512 × 512, in \"tile\", out \"result\"");
}

TEST(SuperResolutionModel, saysHowFarItLooks)
{
    EXPECT_EQ(SuperResolutionModel(modelFile("reach"), 1).reach(), 1);
    EXPECT_EQ(SuperResolutionModel(modelFile("blurred"), 1).reach(), 0);
    // A network of one size can be given nothing else, whatever it says.
    EXPECT_EQ(SuperResolutionModel(modelFile("reach-of-one-size"), 1).reach(), 0);
}

TEST(SuperResolutionModel, aStopRequestEndsARunInsideTheTile)
{
    std::stop_source stop;
    stop.request_stop();
    SuperResolutionModel model(modelFile("convolutions"), 2);
    EXPECT_THROW(static_cast<void>(model.run(modelTile(), stop.get_token())), UpscaleStopped);
}

TEST(SuperResolutionModel, itsThreadsEndWithIt)
{
    const std::vector<float> tile = modelTile();
    const QSet<QString> before = threads();
    QSet<QString> during;
    {
        SuperResolutionModel model(modelFile("convolutions"), 4);
        static_cast<void>(model.run(tile, {}));
        during = threads() - before;
    }
    EXPECT_GE(during.size(), 3);
    EXPECT_TRUE(areGone(during));
}

} // namespace quorvane
