#include "demo-service/Painter/Painter.h"

#include <QColor>
#include <QCryptographicHash>

namespace quorvane {

QImage paintPicture(const QString &prompt, QSize size)
{
    const QByteArray hash = QCryptographicHash::hash(prompt.toUtf8(), QCryptographicHash::Sha256);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            row[x] = qRgb(static_cast<uchar>(hash[0]), x * 255 / size.width(), y * 255 / size.height());
        }
    }
    return image;
}

} // namespace quorvane
