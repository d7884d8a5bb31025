#include "Views/Actions/PictureMimeData.h"

#include "Platform/Files/WholeFile.h"

#include <QFile>
#include <QImageReader>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Qt's name for pixels, which it offers to other programs in every image format that it can write.
const QString kPixels = u"application/x-qt-image"_s;

} // namespace

PictureMimeData::PictureMimeData(const QString &path)
    : m_path(path)
{
    setUrls({QUrl::fromLocalFile(path)});
}

QStringList PictureMimeData::formats() const
{
    return QMimeData::formats() << kPixels;
}

bool PictureMimeData::hasFormat(const QString &format) const
{
    return format == kPixels || QMimeData::hasFormat(format);
}

QVariant PictureMimeData::retrieveData(const QString &format, QMetaType type) const
{
    if (format != kPixels) {
        return QMimeData::retrieveData(format, type);
    }
    QFile file;
    if (!openRegularFile(m_path, kLargestPictureBytes, &file)) {
        return QImage();
    }
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    return reader.read();
}

} // namespace quorvane
