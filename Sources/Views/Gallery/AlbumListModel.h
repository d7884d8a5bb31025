#pragma once

#include "Manager/Library/GalleryListing.h"
#include "Views/Gallery/EntryListModel.h"

namespace quorvane {

/// The albums for the grid.
class AlbumListModel : public EntryListModel<AlbumEntry>
{
    Q_OBJECT

  public:
    enum Role { IdRole = Qt::UserRole + 1, TitleRole, CoverRole, CountRole, IsFavoritesRole };

    using EntryListModel::EntryListModel;

    void setAlbums(std::vector<AlbumEntry> albums) { replace(std::move(albums)); }

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  private:
    [[nodiscard]] QString keyOf(const AlbumEntry &entry) const override;
};

} // namespace quorvane
