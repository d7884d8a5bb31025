#include "Unit/Upscaling/Gpu/GpuWorkerFixture.h"

#include "Support/Results.h"

#include "Upscaling/Gpu/GpuWorker.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <cmath>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(GpuWorker, givesWhatTheNetworkGives)
{
    const std::vector<float> tile = sampleTile();
    SuperResolutionModel model(modelFile("convolutions"), 2);
    GpuWorker worker(kRealWorker, {modelFile("convolutions"), kProcessor});
    std::vector<float> result(kResultSize);
    for (int again = 0; again < 2; ++again) {
        std::fill(result.begin(), result.end(), -1.0F);
        ASSERT_TRUE(worker.run(tile, kTile, result, kPatience));
        const auto expected = model.run(tile, {});
        float difference = 0;
        for (std::size_t index = 0; index < result.size(); ++index) {
            difference = std::max(difference, std::abs(result[index] - expected[index]));
        }
        EXPECT_LE(difference, 1e-5F);
    }
}

TEST(GpuWorker, takesTilesOfAnySizeThatATileMayHave)
{
    SuperResolutionModel model(modelFile("reach"), 2);
    GpuWorker worker(kRealWorker, {modelFile("reach"), kProcessor});
    const QImage picture = positions(640, 100).convertToFormat(QImage::Format_RGBX8888);
    for (const QSize size : {QSize(513, 40), QSize(1, 1), QSize(640, 100)}) {
        const QImage part = picture.copy(QRect(QPoint(0, 0), size));
        std::vector<float> tile(std::size_t(3) * std::size_t(size.width()) * std::size_t(size.height()));
        planesFromTile(part, tile);
        std::vector<float> result(16 * tile.size());
        ASSERT_TRUE(worker.run(tile, size, result, kPatience));
        const auto expected = model.run(tile, {}, size);
        EXPECT_TRUE(std::equal(result.begin(), result.end(), expected.begin(), expected.end()));
    }
    for (const GpuWorker::Header none : {GpuWorker::Header{0, 5}, {5, -1}, {769, 1}, {1, 1 << 30}}) {
        EXPECT_EQ(none.tileSize(), 0U) << none.width << ' ' << none.height;
    }
}

TEST(GpuWorker, takesTheFirstProviderThatWorks)
{
    GpuWorker worker(kRealWorker, {modelFile("nearest"), u"NoSuchProvider"_s, kProcessor});
    std::vector<float> result(kResultSize);
    EXPECT_TRUE(worker.run(sampleTile(), kTile, result, kPatience));
}

TEST(GpuWorker, whateverGoesWrongFailsForGood)
{
    const std::vector<float> tile = sampleTile();
    std::vector<float> result(kResultSize);
    for (const auto &[behaviour, reason] : {std::pair("crash", "it ended"),
                                            {"too-little", "it ended"},
                                            {"nothing", "it ended"},
                                            {"too-much", "it gave more than a result"}}) {
        GpuWorker worker(QStringLiteral(GPU_WORKER_DOUBLE), {modelFile("nearest"), QLatin1String(behaviour), u"2"_s});
        EXPECT_TRUE(worker.run(tile, kTile, result, kPatience)) << behaviour;
        EXPECT_EQ(text(wordsOf(worker.run(tile, kTile, result, kPatience))), reason) << behaviour;
        EXPECT_FALSE(worker.run(tile, kTile, result, kPatience)) << behaviour;
    }
    for (const QStringList &arguments : {QStringList{u"/nowhere/network.onnx"_s, kProcessor},
                                         {modelFile("garbage"), kProcessor},
                                         {modelFile("no-picture"), kProcessor},
                                         {modelFile("nearest"), u"CUDAExecutionProvider"_s}}) {
        GpuWorker worker(kRealWorker, arguments);
        EXPECT_FALSE(worker.run(tile, kTile, result, kPatience)) << text(arguments.join(' '_L1));
    }
    GpuWorker worker(u"/nowhere/worker"_s, {});
    EXPECT_EQ(text(wordsOf(worker.run(tile, kTile, result, kPatience))), "it was not started");
}

TEST(GpuWorker, isLeftAtTheLimit)
{
    GpuWorker worker(QStringLiteral(GPU_WORKER_DOUBLE), {modelFile("nearest"), u"hang"_s, u"1"_s});
    std::vector<float> result(kResultSize);
    EXPECT_EQ(text(wordsOf(worker.run(sampleTile(), kTile, result, std::chrono::milliseconds(300)))),
              "it was not done in time");
    EXPECT_FALSE(worker.run(sampleTile(), kTile, result, kPatience));
}

TEST(GpuWorker, anotherThreadEndsARun)
{
    GpuWorker worker(QStringLiteral(GPU_WORKER_DOUBLE), {modelFile("nearest"), u"hang"_s, u"1"_s});
    std::vector<float> result(kResultSize);
    const std::jthread other([&worker] { worker.end(); });
    EXPECT_FALSE(worker.run(sampleTile(), kTile, result, std::chrono::hours(1)));
}

} // namespace quorvane
