#pragma once

#include "Manager/Album.h"

#include <QAbstractListModel>

namespace quorvane {

/// The albums for the grid.
class AlbumListModel : public QAbstractListModel
{
    Q_OBJECT

  public:
    enum Role { IdRole = Qt::UserRole + 1, TitleRole, CoverRole, CountRole, IsFavoritesRole };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] const std::vector<Album> &albums() const { return m_albums; }

    /// Rows that stay where they are keep their tiles.
    void setAlbums(std::vector<Album> albums);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  private:
    std::vector<Album> m_albums;
};

} // namespace quorvane
