#include "Views/Gallery/ImageListModel.h"

#include "Manager/ImageRecords.h"
#include "Views/Pictures/PictureUrl.h"

namespace quorvane {

void ImageListModel::setFavorites(const QSet<QString> &favorites)
{
    const QSet<QString> before = std::exchange(m_favorites, favorites);
    for (int row = 0; row < rowCount(); ++row) {
        const QString name = ImageRecords::fileName(entries()[std::size_t(row)].path);
        if (before.contains(name) != m_favorites.contains(name)) {
            Q_EMIT dataChanged(index(row), index(row), {IsFavoriteRole});
        }
    }
}

void ImageListModel::setUpscaling(const QString &url)
{
    const QString before = std::exchange(m_upscaling, url);
    for (int row = 0; row < rowCount(); ++row) {
        const QString &path = entries()[std::size_t(row)].path;
        if ((path == before) != (path == m_upscaling)) {
            Q_EMIT dataChanged(index(row), index(row), {IsUpscalingRole});
        }
    }
}

QVariant ImageListModel::data(const QModelIndex &index, int role) const
{
    const PictureEntry &entry = entryAt(index);
    switch (role) {
    case UrlRole:
        return entry.path;
    case ThumbnailRole:
        return thumbnailUrl(entry.path, entry.stamp);
    case IsFavoriteRole:
        return m_favorites.contains(ImageRecords::fileName(entry.path));
    case PromptRole:
        return entry.prompt;
    case TimestampRole:
        return ImageRecords::timestamp(entry.created);
    case IsUpscalingRole:
        return entry.path == m_upscaling;
    default:
        return {};
    }
}

QHash<int, QByteArray> ImageListModel::roleNames() const
{
    return {{UrlRole, "url"},       {ThumbnailRole, "thumbnail"}, {IsFavoriteRole, "isFavorite"},
            {PromptRole, "prompt"}, {TimestampRole, "timestamp"}, {IsUpscalingRole, "isUpscaling"}};
}

} // namespace quorvane
