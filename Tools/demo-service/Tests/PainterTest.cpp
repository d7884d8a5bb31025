#include "demo-service/Painter/Painter.h"

#include "demo-service/PictureEncoding.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QSize kSize(640, 360);

const QStringList kPrompts{u"a quiet mountain lake at dawn"_s,
                           u"neon city at night in the rain"_s,
                           u"desert dunes under the milky way"_s,
                           u"aurora over a snowy forest"_s,
                           u"tropical islands at noon, turquoise sea"_s,
                           u"autumn forest in fog"_s,
                           u"monochrome mountains"_s,
                           u"a red planet with two moons"_s,
                           QString(),
                           u"静かな山の湖"_s,
                           u"a golden meadow in summer"_s,
                           u"stormy sea at sunset"_s};

struct Statistics
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double entropy = 0; ///< Bits per pixel of the brightness, 0 to 8.

    [[nodiscard]] double brightness() const { return (red + green + blue) / 3; }
};

Statistics statisticsOf(const QImage &image)
{
    Statistics statistics;
    std::array<double, 256> histogram{};
    const double count = static_cast<double>(image.width()) * image.height();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            statistics.red += qRed(pixel) / count;
            statistics.green += qGreen(pixel) / count;
            statistics.blue += qBlue(pixel) / count;
            histogram.at(static_cast<size_t>(qGray(pixel))) += 1 / count;
        }
    }
    for (const double share : histogram) {
        statistics.entropy -= share > 0 ? share * std::log2(share) : 0;
    }
    return statistics;
}

Statistics statisticsOf(const char *prompt)
{
    return statisticsOf(paintPicture(QString::fromUtf8(prompt), kSize));
}

/// Root of the mean squared difference of brightness, 0 to 255.
double difference(const QImage &a, const QImage &b)
{
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const double d = qGray(a.pixel(x, y)) - qGray(b.pixel(x, y));
            sum += d * d;
        }
    }
    return std::sqrt(sum / (static_cast<double>(a.width()) * a.height()));
}

/// The longest run of equal pixels in a row of the sky.
int longestRun(const QImage &image)
{
    int longest = 0;
    for (int y = 0; y < image.height() / 4; ++y) {
        int run = 1;
        for (int x = 1; x < image.width(); ++x) {
            run = image.pixel(x, y) == image.pixel(x - 1, y) ? run + 1 : 1;
            longest = std::max(longest, run);
        }
    }
    return longest;
}

} // namespace

TEST(Painter, theSamePromptAndSizeGiveTheSameBytes)
{
    for (const QString &prompt : kPrompts) {
        const QByteArray first = encodePicture(paintPicture(prompt, QSize(320, 180)), "png");
        EXPECT_EQ(first, encodePicture(paintPicture(prompt, QSize(320, 180)), "png")) << prompt.toStdString();
    }
}

TEST(Painter, theSizeIsExact)
{
    for (const QSize size : {QSize(1, 1), QSize(2, 3), QSize(17, 301), QSize(1408, 768), QSize(1536, 1024)}) {
        EXPECT_EQ(paintPicture(kPrompts[0], size).size(), size);
    }
}

TEST(Painter, everyPromptGetsAPictureOfItsOwn)
{
    QList<QImage> pictures;
    for (const QString &prompt : kPrompts) {
        pictures += paintPicture(prompt, QSize(160, 90));
    }
    for (int i = 0; i < pictures.size(); ++i) {
        for (int j = 0; j < i; ++j) {
            EXPECT_GT(difference(pictures[i], pictures[j]), 12) << i << ' ' << j;
        }
    }
    const QImage other = paintPicture(u"a quiet mountain lake at dawn!"_s, QSize(160, 90));
    EXPECT_GT(difference(pictures[0], other), 8) << "the same words, another hash";
}

TEST(Painter, anotherSizeShowsTheSameScene)
{
    for (const QString &prompt : kPrompts) {
        // Fine detail may differ; what is seen from afar may not.
        const QSize afar(80, 45);
        const auto fromAfar = [&](QSize size) {
            return paintPicture(prompt, size).scaled(afar, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        };
        EXPECT_LT(difference(fromAfar(QSize(480, 270)), fromAfar(QSize(960, 540))), 8) << prompt.toStdString();
    }
}

TEST(Painter, wordsMatter)
{
    EXPECT_LT(statisticsOf("mountains at night").brightness() * 2, statisticsOf("mountains at noon").brightness());
    const Statistics red = statisticsOf("a red planet");
    EXPECT_GT(red.red, 1.5 * red.blue);
    const Statistics islands = statisticsOf("tropical islands at noon, turquoise sea");
    EXPECT_GT(islands.blue, islands.red);
    const Statistics autumn = statisticsOf("autumn forest");
    EXPECT_GT(autumn.red, autumn.blue);
    const Statistics grey = statisticsOf("monochrome mountains");
    EXPECT_NEAR(grey.red, grey.green, 1);
    EXPECT_NEAR(grey.red, grey.blue, 1);
}

TEST(Painter, noPictureIsBlankOrBanded)
{
    for (const QString &prompt : kPrompts) {
        const QImage picture = paintPicture(prompt, kSize);
        EXPECT_GT(statisticsOf(picture).entropy, 5) << prompt.toStdString();
        EXPECT_LT(longestRun(picture), 60) << prompt.toStdString();
    }
}

TEST(Painter, aPromptOfAMegabyteIsPaintedToo)
{
    EXPECT_FALSE(paintPicture(QString(1024 * 1024, u'x'), QSize(64, 36)).isNull());
}

} // namespace quorvane
