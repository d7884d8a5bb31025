#include "Upscaling/Image/Resemblance.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

// The idea: whatever a network invents in detail, it leaves the brightness of a place about as it was. So both pictures
// are averaged over cells that are large enough to hold no detail, and the averages are compared. That costs one pass
// over the bytes, which is little beside the network, and it finds what really happens: black
// tiles, tiles of noise, channels in another order, tiles in each other's place, values in another range.
//
// Not taken: a measure of likeness as picture quality is judged by (SSIM and its kin). It asks how good a picture is,
// is low for pictures of fine grain that are right, and needs a threshold that another network would not keep. And not
// taken: looking for black alone, since a driver gives noise as often.

namespace quorvane {

namespace {

constexpr int kCellEdge = 32;
constexpr int kScale = 4;
constexpr double kTolerance = 24;
constexpr double kThinPartTolerance = 96;

/// The means of red, green and blue of every cell in a row of cells, left to right. bytesPerPixel is that of image.
std::vector<double> cellMeans(const QImage &image, QRect rows, int bytesPerPixel, int cellEdge)
{
    // Columns are summed first, because that loop runs over neighbouring bytes and can be vectorised.
    std::vector<std::uint32_t> columns(static_cast<std::size_t>(rows.width()) *
                                       static_cast<std::size_t>(bytesPerPixel));
    for (int y = rows.top(); y <= rows.bottom(); ++y) {
        const uchar *row = image.constScanLine(y) + static_cast<qsizetype>(rows.left()) * bytesPerPixel;
        for (std::size_t index = 0; index < columns.size(); ++index) {
            columns[index] += row[index];
        }
    }
    std::vector<double> means;
    for (int left = 0; left < rows.width(); left += cellEdge) {
        const int right = std::min(left + cellEdge, rows.width());
        for (int channel = 0; channel < 3; ++channel) {
            double sum = 0;
            for (int x = left; x < right; ++x) {
                sum += columns[static_cast<std::size_t>(x) * static_cast<std::size_t>(bytesPerPixel) +
                               static_cast<std::size_t>(channel)];
            }
            means.push_back(sum / (right - left) / rows.height());
        }
    }
    return means;
}

} // namespace

bool resembles(const QImage &source, QRect part, const QImage &enlarged, QPoint corner)
{
    double difference = 0;
    double count = 0;
    for (int top = 0; top < part.height(); top += kCellEdge) {
        const int height = std::min(kCellEdge, part.height() - top);
        const QRect before(part.left(), part.top() + top, part.width(), height);
        const QRect after(corner + QPoint(0, top * kScale), before.size() * kScale);
        const std::vector<double> expected = cellMeans(source, before, 4, kCellEdge);
        const std::vector<double> found = cellMeans(enlarged, after, 3, kCellEdge * kScale);
        for (std::size_t index = 0; index < expected.size(); ++index) {
            difference += std::abs(expected[index] - found[index]);
        }
        count += static_cast<double>(expected.size());
    }
    const bool thin = std::min(part.width(), part.height()) < kCellEdge;
    return difference / count <= (thin ? kThinPartTolerance : kTolerance);
}

} // namespace quorvane
