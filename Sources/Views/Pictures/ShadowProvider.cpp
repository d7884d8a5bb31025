#include "Views/Pictures/ShadowProvider.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// How far a point lies outside of a rectangle with round corners: the rectangle's middle is the origin, half its size
/// without the corners is core. Negative inside.
double distanceOutside(double x, double y, double core, double radius)
{
    const double right = std::max(std::abs(x) - core, 0.0);
    const double down = std::max(std::abs(y) - core, 0.0);
    return std::hypot(right, down) - radius;
}

} // namespace

ShadowProvider::ShadowProvider()
    : QQuickImageProvider(QQuickImageProvider::Image)
{
}

QImage ShadowProvider::requestImage(const QString &id, QSize *size, const QSize & /*requestedSize*/)
{
    const double radius = id.section('/'_L1, 0, 0).toDouble();
    const double reach = id.section('/'_L1, 1, 1).toDouble();
    const double darkest = id.section('/'_L1, 2, 2).toDouble() / 100;
    constexpr double kCore = 2;     // What is stretched.
    constexpr double kOffset = 0.3; // Light comes from above: the shadow lies this share of its reach lower.
    const int side = int(2 * (radius + reach + kCore));
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const double x = column + 0.5 - side / 2.0;
            const double y = row + 0.5 - side / 2.0;
            const double fromShadow = distanceOutside(x, y - reach * kOffset, kCore, radius);
            // Nothing where the rectangle is, with one soft pixel at its edge.
            const double shown = std::clamp(distanceOutside(x, y, kCore, radius) + 0.5, 0.0, 1.0);
            const double far = std::clamp(fromShadow / (reach * (1 - kOffset)), 0.0, 1.0);
            const double alpha = darkest * shown * (1 - far) * (1 - far);
            image.setPixel(column, row, qRgba(0, 0, 0, int(std::lround(255 * alpha))));
        }
    }
    *size = image.size();
    return image;
}

} // namespace quorvane
