#include "Views/Gallery/ImageListModel.h"

#include "Views/Gallery/ListUpdate.h"
#include "Views/Pictures/PictureUrl.h"

namespace quorvane {

void ImageListModel::setImages(const QStringList &images, const QSet<QString> &favorites, TextMap prompts)
{
    m_favorites = favorites;
    m_prompts = std::move(prompts);
    const auto change = changedRows(m_images, images);
    if (change.removed > 0) {
        beginRemoveRows({}, change.first, change.first + change.removed - 1);
        m_images.remove(change.first, change.removed);
        endRemoveRows();
    }
    if (change.added > 0) {
        beginInsertRows({}, change.first, change.first + change.added - 1);
        m_images = images;
        endInsertRows();
    }
    if (!m_images.isEmpty()) {
        Q_EMIT dataChanged(index(0), index(int(m_images.size()) - 1));
    }
}

void ImageListModel::setUpscaling(const QString &url)
{
    for (const QString &changed : {std::exchange(m_upscaling, url), url}) {
        const auto row = m_images.indexOf(changed);
        if (row >= 0) {
            Q_EMIT dataChanged(index(int(row)), index(int(row)), {IsUpscalingRole});
        }
    }
}

int ImageListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_images.size());
}

QVariant ImageListModel::data(const QModelIndex &index, int role) const
{
    const QString &path = m_images[index.row()];
    switch (role) {
    case UrlRole:
        return path;
    case ThumbnailRole:
        return thumbnailUrl(path);
    case IsFavoriteRole:
        return m_favorites.contains(ImageRecords::fileName(path));
    case PromptRole: {
        const auto prompt = m_prompts.find(ImageRecords::fileName(path));
        return prompt != m_prompts.end() ? prompt->second : QString();
    }
    case TimestampRole:
        return ImageRecords::timestamp(path);
    case IsUpscalingRole:
        return !m_upscaling.isEmpty() && path == m_upscaling;
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
