#include "Views/Gallery/AlbumListModel.h"

#include "Views/Gallery/ListUpdate.h"
#include "Views/Pictures/PictureUrl.h"

namespace quorvane {

void AlbumListModel::setAlbums(std::vector<Album> albums)
{
    QStringList before;
    QStringList after;
    for (const Album &album : m_albums) {
        before.append(album.id);
    }
    for (const Album &album : albums) {
        after.append(album.id);
    }
    const auto change = changedRows(before, after);
    if (change.removed > 0) {
        beginRemoveRows({}, change.first, change.first + change.removed - 1);
        m_albums.erase(m_albums.begin() + change.first, m_albums.begin() + change.first + change.removed);
        endRemoveRows();
    }
    if (change.added > 0) {
        beginInsertRows({}, change.first, change.first + change.added - 1);
        m_albums = std::move(albums);
        endInsertRows();
    } else {
        m_albums = std::move(albums);
    }
    if (!m_albums.empty()) {
        Q_EMIT dataChanged(index(0), index(int(m_albums.size()) - 1));
    }
}

int AlbumListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_albums.size());
}

QVariant AlbumListModel::data(const QModelIndex &index, int role) const
{
    const Album &album = m_albums[std::size_t(index.row())];
    switch (role) {
    case IdRole:
        return album.id;
    case TitleRole:
        return albumTitle(album.id, album.isFavorites);
    case CoverRole:
        return thumbnailUrl(album.images.first());
    case CountRole:
        return album.images.size();
    case IsFavoritesRole:
        return album.isFavorites;
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

} // namespace quorvane
