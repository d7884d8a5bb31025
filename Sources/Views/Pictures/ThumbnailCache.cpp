#include "Views/Pictures/ThumbnailCache.h"

#include "Views/Pictures/PictureDecoding.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u"/quorvane/thumbnails"_s;
}

/// A cache that cannot be written only costs time.
void store(const QString &path, const QImage &image)
{
    QDir().mkpath(folder());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return;
    }
    constexpr int kQuality = 90;
    const bool isWritten = image.hasAlphaChannel() ? image.save(&file, "PNG") : image.save(&file, "JPG", kQuality);
    if (isWritten) {
        file.commit();
    }
}

} // namespace

ThumbnailCache::ThumbnailCache()
    : m_memory(kMemoryBytes)
{
}

std::optional<QString> ThumbnailCache::fileFor(const QString &path)
{
    const QFileInfo picture(path);
    if (!picture.exists()) {
        return std::nullopt;
    }
    const QString identity = u"%1\n%2\n%3"_s.arg(picture.absoluteFilePath(), QString::number(picture.size()),
                                                 QString::number(picture.lastModified().toMSecsSinceEpoch()));
    const QByteArray hash = QCryptographicHash::hash(identity.toUtf8(), QCryptographicHash::Sha256).toHex();
    return folder() + '/'_L1 + QString::fromLatin1(hash);
}

QImage ThumbnailCache::thumbnail(const QString &path)
{
    const std::optional<QString> file = fileFor(path);
    if (!file) {
        return {};
    }
    {
        const std::lock_guard lock(m_mutex);
        if (const QImage *kept = m_memory.object(*file)) {
            return *kept;
        }
    }
    QImage image(*file);
    if (image.isNull()) {
        image = decodedWithin(path, QSize(kLongSide, kLongSide));
        if (image.isNull()) {
            return {};
        }
        store(*file, image);
    }
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    remember(*file, image);
    return image;
}

void ThumbnailCache::remember(const QString &key, const QImage &image)
{
    const std::lock_guard lock(m_mutex);
    m_memory.insert(key, new QImage(image), image.sizeInBytes());
}

qsizetype ThumbnailCache::bytesInMemory() const
{
    const std::lock_guard lock(m_mutex);
    return m_memory.totalCost();
}

} // namespace quorvane
