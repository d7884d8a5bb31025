#pragma once

#include <QImage>
#include <QPointF>
#include <QSize>
#include <QString>

#include <algorithm>
#include <cmath>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A picture whose pixels tell where they are: red grows from 0 to 255 from left to right, green from top to bottom,
/// and blue is the picture's mark.
inline QImage positionPicture(QSize size, int mark)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            row[x] = qRgb(255 * x / (size.width() - 1), 255 * y / (size.height() - 1), mark);
        }
    }
    return picture;
}

/// Compares a screenshot with positionPicture(source, mark) that fills it, cropped around the centre, not stretched:
/// empty when they agree at 49 places, to 3 of 256 levels; else the last place that differs. On a desktop with a panel
/// or icons some places are hidden: that many may differ. used is the size of
/// the source's middle that was used as if it were all; the whole source unless told.
inline QString differenceFromFill(const QImage &shot, QSize source, int mark, int hidden = 0, QSize used = {})
{
    if (used.isEmpty()) {
        used = source;
    }
    QString difference;
    if (shot.isNull()) {
        return u"no screenshot"_s;
    }
    const double factor = std::max(double(shot.width()) / used.width(), double(shot.height()) / used.height());
    for (int step = 0; step < 49; ++step) {
        const QPoint place(shot.width() * (2 * (step % 7) + 1) / 14, shot.height() * (2 * (step / 7) + 1) / 14);
        const double x = (place.x() + 0.5 - shot.width() / 2.0) / factor + source.width() / 2.0 - 0.5;
        const double y = (place.y() + 0.5 - shot.height() / 2.0) / factor + source.height() / 2.0 - 0.5;
        const QRgb found = shot.pixel(place);
        const double red = 255 * x / (source.width() - 1);
        const double green = 255 * y / (source.height() - 1);
        if (std::abs(qRed(found) - red) > 3 || std::abs(qGreen(found) - green) > 3 ||
            std::abs(qBlue(found) - mark) > 3) {
            difference = u"at %1,%2: found %3,%4,%5, expected %6,%7,%8"_s.arg(place.x())
                             .arg(place.y())
                             .arg(qRed(found))
                             .arg(qGreen(found))
                             .arg(qBlue(found))
                             .arg(red)
                             .arg(green)
                             .arg(mark);
            --hidden;
        }
    }
    return hidden < 0 ? difference : QString();
}

} // namespace quorvane
