#include "Views/Tips/TipPlacement.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr double kMargin = 6; ///< From the window's edges.
constexpr double kGap = 4;    ///< From what it explains.

/// Over the middle of what is wider; otherwise it begins where the text begins, or ends where that ends.
double horizontally(const QRectF &item, double width, double windowWidth, bool isMirrored)
{
    const double last = windowWidth - kMargin - width;
    double x = item.center().x() - width / 2;
    if (width > item.width()) {
        const double atLeft = item.left();
        const double atRight = item.right() - width;
        const bool fitsAtLeft = atLeft <= last;
        const bool fitsAtRight = atRight >= kMargin;
        x = (isMirrored ? fitsAtRight : !fitsAtLeft) ? atRight : atLeft;
    }
    return std::max(kMargin, std::min(x, last));
}

} // namespace

QRectF TipPlacement::place(const QRectF &item, const QSizeF &wanted, const QSizeF &window, bool isMirrored)
{
    const double width = std::min(wanted.width(), window.width() - 2 * kMargin);
    const double above = item.top() - kGap - kMargin;
    const double below = window.height() - item.bottom() - kGap - kMargin;
    const bool isAbove = wanted.height() <= above || (wanted.height() > below && above >= below);
    const double height = std::max(0.0, std::min(wanted.height(), isAbove ? above : below));
    const double y = isAbove ? item.top() - kGap - height : item.bottom() + kGap;
    return {horizontally(item, width, window.width(), isMirrored), y, width, height};
}

} // namespace quorvane
