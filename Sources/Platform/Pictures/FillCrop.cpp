#include "Platform/Pictures/FillCrop.h"

#include <algorithm>

namespace quorvane {

namespace {

/// dividend * factor / divisor, rounded to the nearest, between 1 and limit.
int scaledLength(int dividend, int factor, int divisor, int limit)
{
    const qint64 nearest = (2 * qint64(dividend) * factor + divisor) / (2 * qint64(divisor));
    return static_cast<int>(std::clamp<qint64>(nearest, 1, limit));
}

} // namespace

QRect fillRectangle(QSize source, QSize target)
{
    if (source.isEmpty() || target.isEmpty()) {
        return {};
    }
    QSize part = source;
    const bool sourceIsWider = qint64(source.width()) * target.height() > qint64(target.width()) * source.height();
    if (sourceIsWider) {
        part.setWidth(scaledLength(source.height(), target.width(), target.height(), source.width()));
    } else {
        part.setHeight(scaledLength(source.width(), target.height(), target.width(), source.height()));
    }
    return {QPoint((source.width() - part.width()) / 2, (source.height() - part.height()) / 2), part};
}

QImage filledPicture(const QImage &source, QSize target)
{
    const QRect part = fillRectangle(source.size(), target);
    if (part.isEmpty()) {
        return {};
    }
    // The shape was settled by the crop, so the aspect ratio may be ignored here to hit target exactly.
    return source.copy(part).scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace quorvane
