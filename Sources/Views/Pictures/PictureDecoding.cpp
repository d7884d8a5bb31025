#include "Views/Pictures/PictureDecoding.h"

#include "Platform/Files/WholeFile.h"

#include <QFile>
#include <QImageReader>

namespace quorvane {

namespace {

bool isTurned(const QImageReader &reader)
{
    return reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
}

} // namespace

QSize shownSize(const QString &path)
{
    QFile file;
    if (!openRegularFile(path, kLargestPictureBytes, &file)) {
        return {};
    }
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    return isTurned(reader) ? size.transposed() : size;
}

QImage decodedWithin(const QString &path, QSize bounds)
{
    QFile file;
    if (!openRegularFile(path, kLargestPictureBytes, &file)) {
        return {};
    }
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty()) {
        return {};
    }
    // The reader scales before it turns.
    const QSize stored = isTurned(reader) ? bounds.transposed() : bounds;
    if (size.width() > stored.width() || size.height() > stored.height()) {
        reader.setScaledSize(size.scaled(stored, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    }
    return reader.read();
}

} // namespace quorvane
