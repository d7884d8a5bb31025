#pragma once

#include "Manager/GalleryListing.h"
#include "Views/Gallery/EntryListModel.h"

#include <QSet>

namespace quorvane {

/// The pictures of one album for the grid.
class ImageListModel : public EntryListModel<PictureEntry>
{
    Q_OBJECT

  public:
    enum Role { UrlRole = Qt::UserRole + 1, ThumbnailRole, IsFavoriteRole, PromptRole, TimestampRole, IsUpscalingRole };

    using EntryListModel::EntryListModel;

    void setPictures(std::vector<PictureEntry> pictures) { replace(std::move(pictures)); }

    /// The file names of the favourites.
    void setFavorites(const QSet<QString> &favorites);

    /// The picture that is being enlarged; empty for none.
    void setUpscaling(const QString &url);

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  private:
    [[nodiscard]] QString keyOf(const PictureEntry &entry) const override { return entry.path; }

    QSet<QString> m_favorites;
    QString m_upscaling;
};

} // namespace quorvane
