// The network in Resources/models: that it is the documented file, keeps to what the engine accepts, gives the same
// picture everywhere and enlarges better than a bicubic filter. Documentation/Network.md has the long evaluation.

#include "Unit/Upscaling/Network/ShippedNetworkFixture.h"

#include "Support/Files.h"

#include <QCryptographicHash>

namespace quorvane {

TEST(ShippedNetwork, isTheDocumentedFile)
{
    const QByteArray content = contentOf(kNetwork);
    ASSERT_FALSE(content.isEmpty());
    EXPECT_LE(content.size(), 6'000'000);
    const QByteArray digest = QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
    EXPECT_TRUE(contentOf(QStringLiteral(QUORVANE_NETWORK_DOCUMENT)).contains(digest)) << digest.constData();
}

TEST(ShippedNetwork, takesTilesOfAnySize)
{
    EXPECT_EQ(SuperResolutionModel(kNetwork, 1).description().toStdString(),
              "float32, tiles of any size, in \"tile\", out \"result\"");
}

TEST(ShippedNetwork, givesTheDocumentedPictureWithEveryNumberOfThreads)
{
    const QImage small = testPicture("small.png");
    const QImage documented = testPicture("enlarged.png");
    ASSERT_FALSE(small.isNull());
    ASSERT_EQ(documented.size(), small.size() * kScale);
    for (const int threads : {1, 2, 4}) {
        EXPECT_LE(largestDifference(enlargedByNetwork(small, threads), documented), 1) << threads;
    }
}

// The second scene is mostly ripples finer than a source pixel, which nothing can bring back: there the two are level.
TEST(ShippedNetwork, enlargesBetterThanBicubicAndKeepsColours)
{
    double sum = 0;
    for (const char *prompt : {"an old harbour in the evening light", "mountains above a sea of clouds",
                               "a meadow with a single tree", "a city street in the rain"}) {
        const QImage original = paintedScene(prompt, QSize(1024, 1024));
        const QImage small = reduced(original);
        const QImage large = enlargedByNetwork(small, 2);
        ASSERT_EQ(large.size(), original.size());
        const double gain = psnr(large, original) - psnr(enlargedByBicubic(small), original);
        RecordProperty(prompt, std::to_string(gain));
        EXPECT_GT(gain, -0.1) << prompt;
        sum += gain;
        const auto before = channelMeans(small);
        const auto after = channelMeans(large);
        for (std::size_t channel = 0; channel < before.size(); ++channel) {
            EXPECT_NEAR(after[channel], before[channel], 0.5) << prompt << ", channel " << channel;
        }
    }
    EXPECT_GT(sum / 4, 0.6);
}

TEST(ShippedNetwork, tilesJoinWithoutASeam)
{
    SuperResolutionModel model(kNetwork, 2);
    const QImage scene = paintedScene("a forest under a bright sky", QSize(1920, 1080));
    for (const QSize size : {QSize(1, 1), QSize(3, 2), QSize(1, 700), QSize(512, 512), QSize(513, 9), QSize(520, 1025),
                             QSize(1100, 700), QSize(1920, 1080)}) {
        const QImage picture = scene.copy(QRect(QPoint(0, 0), size));
        const QImage byTiles = QImage::fromData(tileUpscaleWithModel(picture, model, {}));
        EXPECT_LE(largestDifference(byTiles, upscaleTileWithModel(picture, model, {})), 1)
            << size.width() << " x " << size.height();
    }
}

// A step as between any two pixels: no line is seen where tiles meet.
TEST(ShippedNetwork, doesNotShowWhereTilesMeet)
{
    const QImage small = reduced(paintedScene("a forest under a bright sky", QSize(2560, 1600)));
    const QImage large = enlargedByNetwork(small, 2);
    ASSERT_EQ(large.size(), small.size() * kScale);
    const double beside = (step(large, 2044) + step(large, 2052)) / 2; // Between two source pixels as well.
    EXPECT_LE(step(large, 2048), 1.5 * beside);
}

TEST(ShippedNetwork, aBlackRimStaysBlackAndWhatIsBesideItStaysAsItIs)
{
    SuperResolutionModel model(kNetwork, 2);
    QImage picture(40, 40, QImage::Format_RGBX8888);
    picture.fill(qRgb(200, 120, 40));
    const auto enlarge = [&model](const QImage &image) { return upscaleTileWithModel(image, model, {}); };
    const QImage plain = enlarge(picture);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 40; ++x) {
            picture.setPixel(x, 39 - y, qRgb(0, 0, 0));
        }
    }
    const QImage rimmed = enlarge(picture);
    const QRect top(0, 0, 160, 40);
    const QRect bottom(0, 120, 160, 40);
    EXPECT_LE(largestDifference(rimmed.copy(top), plain.copy(top)), 1);
    QImage black(bottom.size(), QImage::Format_RGBX8888);
    black.fill(qRgb(0, 0, 0));
    EXPECT_LE(largestDifference(rimmed.copy(bottom), black), 1);
}

} // namespace quorvane
