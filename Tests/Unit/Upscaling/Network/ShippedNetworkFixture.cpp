#include "Unit/Upscaling/Network/ShippedNetworkFixture.h"

namespace quorvane {

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

} // namespace quorvane
