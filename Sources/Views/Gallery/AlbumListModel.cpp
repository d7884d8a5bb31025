#include "Views/Gallery/AlbumListModel.h"

#include "Views/Pictures/PictureUrl.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QVariant AlbumListModel::data(const QModelIndex &index, int role) const
{
    const AlbumEntry &entry = entryAt(index);
    switch (role) {
    case IdRole:
        return entry.album.id;
    case TitleRole:
        return albumTitle(entry.album.id, entry.album.isFavorites);
    case CoverRole:
        return thumbnailUrl(entry.album.images.first(), entry.cover);
    case CountRole:
        return entry.album.images.size();
    case IsFavoritesRole:
        return entry.album.isFavorites;
    default:
        return {};
    }
}

QHash<int, QByteArray> AlbumListModel::roleNames() const
{
    return {{IdRole, "albumId"},
            {TitleRole, "title"},
            {CoverRole, "cover"},
            {CountRole, "count"},
            {IsFavoritesRole, "isFavorites"}};
}

QString AlbumListModel::keyOf(const AlbumEntry &entry) const
{
    // A prompt may be "Favorites", too.
    return (entry.album.isFavorites ? '*'_L1 : '-'_L1) + entry.album.id;
}

} // namespace quorvane
