// The network in Resources/models: that it is the documented file, keeps to what the engine accepts, gives the same
// picture everywhere and enlarges better than a bicubic filter. Documentation/Network.md has the long evaluation.

#include "Support/Files.h"
#include "Upscaling/LocalUpscaler.h"
#include "Upscaling/Network/SuperResolutionModel.h"
#include "demo-service/Painter/Painter.h"

#include <QCryptographicHash>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace quorvane {

namespace {

constexpr int kScale = 4;
const QString kNetwork = QStringLiteral(QUORVANE_SHIPPED_NETWORK);

QImage testPicture(const char *name)
{
    const QImage image(QStringLiteral(QUORVANE_TEST_DATA "/network/") + QLatin1String(name));
    return image.convertToFormat(QImage::Format_RGBX8888);
}

QImage enlargedByNetwork(const QImage &small, int threads)
{
    SuperResolutionModel model(kNetwork, threads);
    return QImage::fromData(tileUpscaleWithModel(small, model, {})).convertToFormat(QImage::Format_RGBX8888);
}

QImage paintedScene(const char *prompt, QSize size)
{
    return paintPicture(QLatin1String(prompt), size).convertToFormat(QImage::Format_RGBX8888);
}

/// Every pixel the mean of the 4 × 4 that it stands for.
QImage reduced(const QImage &image)
{
    QImage small(image.size() / kScale, QImage::Format_RGBX8888);
    for (int y = 0; y < small.height(); ++y) {
        for (int x = 0; x < small.width(); ++x) {
            std::array<int, 3> sum{8, 8, 8};
            for (int at = 0; at < kScale * kScale; ++at) {
                const QRgb pixel = image.pixel(x * kScale + at % kScale, y * kScale + at / kScale);
                sum[0] += qRed(pixel);
                sum[1] += qGreen(pixel);
                sum[2] += qBlue(pixel);
            }
            small.setPixel(x, y, qRgb(sum[0] / 16, sum[1] / 16, sum[2] / 16));
        }
    }
    return small;
}

/// Keys' kernel with a = -1/2.
double cubic(double distance)
{
    const double d = std::abs(distance);
    if (d < 1) {
        return 1.5 * d * d * d - 2.5 * d * d + 1;
    }
    return d < 2 ? -0.5 * d * d * d + 2.5 * d * d - 4 * d + 2 : 0;
}

QImage enlargedByBicubic(const QImage &small)
{
    QImage large(small.size() * kScale, QImage::Format_RGBX8888);
    for (int y = 0; y < large.height(); ++y) {
        for (int x = 0; x < large.width(); ++x) {
            const double sourceX = (x + 0.5) / kScale - 0.5;
            const double sourceY = (y + 0.5) / kScale - 0.5;
            std::array<double, 3> sum{0.5, 0.5, 0.5};
            for (int tap = 0; tap < 16; ++tap) {
                const int tapX = int(std::floor(sourceX)) - 1 + tap % 4;
                const int tapY = int(std::floor(sourceY)) - 1 + tap / 4;
                const double weight = cubic(sourceX - tapX) * cubic(sourceY - tapY);
                const QRgb pixel =
                    small.pixel(std::clamp(tapX, 0, small.width() - 1), std::clamp(tapY, 0, small.height() - 1));
                sum[0] += weight * qRed(pixel);
                sum[1] += weight * qGreen(pixel);
                sum[2] += weight * qBlue(pixel);
            }
            const auto byte = [](double value) { return int(std::clamp(value, 0.0, 255.0)); };
            large.setPixel(x, y, qRgb(byte(sum[0]), byte(sum[1]), byte(sum[2])));
        }
    }
    return large;
}

double luma(QRgb pixel)
{
    return 0.299 * qRed(pixel) + 0.587 * qGreen(pixel) + 0.114 * qBlue(pixel);
}

/// Peak signal-to-noise ratio on luma, in dB.
double psnr(const QImage &one, const QImage &other)
{
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const double difference = luma(one.pixel(x, y)) - luma(other.pixel(x, y));
            sum += difference * difference;
        }
    }
    return 10 * std::log10(255.0 * 255.0 * one.width() * one.height() / sum);
}

std::array<double, 3> channelMeans(const QImage &image)
{
    std::array<double, 3> sum{};
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            sum[0] += qRed(pixel);
            sum[1] += qGreen(pixel);
            sum[2] += qBlue(pixel);
        }
    }
    for (double &mean : sum) {
        mean /= double(image.width()) * image.height();
    }
    return sum;
}

/// The mean luma step between the columns left of x and at x.
double step(const QImage &image, int x)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        sum += std::abs(luma(image.pixel(x, y)) - luma(image.pixel(x - 1, y)));
    }
    return sum / image.height();
}

int largestDifference(const QImage &one, const QImage &other)
{
    int largest = one.size() == other.size() ? 0 : 256;
    for (int y = 0; y < one.height() && largest < 256; ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest = std::max(
                {largest, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
        }
    }
    return largest;
}

} // namespace

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
