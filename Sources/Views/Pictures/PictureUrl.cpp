#include "Views/Pictures/PictureUrl.h"

#include "Views/Pictures/PictureProvider.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString addressOf(QLatin1String provider, const QString &path, const FileStamp &stamp)
{
    // The path is encoded twice: Qt decodes an address once on the way to the provider.
    const QByteArray encoded = QUrl::toPercentEncoding(path).toPercentEncoding();
    return u"image://%1/%2/%3-%4"_s.arg(provider, QString::number(stamp.modified), QString::number(stamp.sizeBytes),
                                        QString::fromLatin1(encoded));
}

} // namespace

QString thumbnailUrl(const QString &path)
{
    return thumbnailUrl(path, fileStamp(path));
}

QString thumbnailUrl(const QString &path, const FileStamp &stamp)
{
    return path.isEmpty() ? QString() : addressOf(PictureProvider::kThumbnails, path, stamp);
}

QString pictureUrl(const QString &path)
{
    return path.isEmpty() ? QString() : addressOf(PictureProvider::kPictures, path, fileStamp(path));
}

QString pathFromPictureId(const QString &id)
{
    const QString encoded = id.section('/'_L1, 1).section('-'_L1, 1);
    QString path = QUrl::fromPercentEncoding(encoded.toUtf8());
    return path.startsWith('/'_L1) ? path : QUrl::fromPercentEncoding(path.toUtf8());
}

} // namespace quorvane
