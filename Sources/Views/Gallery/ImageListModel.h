#pragma once

#include "Manager/Library/GalleryListing.h"
#include "Views/Gallery/EntryListModel.h"
#include "Views/Gallery/PictureWidths.h"

#include <QSet>

namespace quorvane {

/// The pictures of one album for the grid.
class ImageListModel : public EntryListModel<PictureEntry>
{
    Q_OBJECT

  public:
    enum Role {
        UrlRole = Qt::UserRole + 1,
        ThumbnailRole,
        IsFavoriteRole,
        PromptRole,
        TimestampRole,
        IsUpscalingRole,
        SpokenRole
    };

    using EntryListModel::EntryListModel;

    void setPictures(std::vector<PictureEntry> pictures) { replace(std::move(pictures)); }

    /// The file names of the favourites.
    void setFavorites(const QSet<QString> &favorites);

    /// The picture that is being enlarged; empty for none.
    void setUpscaling(const QString &url);

    /// The picture that is the wallpaper; empty for none.
    void setCurrentWallpaper(const QString &url);

    /// What is known of how wide the pictures are; one of which nothing is known is not called 4K.
    void setWidths(PictureWidths widths);
    [[nodiscard]] const PictureWidths &widths() const { return m_widths; }

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  private:
    [[nodiscard]] QString keyOf(const PictureEntry &entry) const override { return entry.path; }

    [[nodiscard]] bool isFavorite(const PictureEntry &entry) const;
    [[nodiscard]] bool isFourK(const PictureEntry &entry) const;
    /// What is read out of a picture: its prompt, its moment and what it is, without its place.
    [[nodiscard]] QString spoken(const PictureEntry &entry) const;
    /// Tells of the rows whose pictures were and are not so, or are and were not.
    template <typename WereSo, typename AreSo> void announce(WereSo wereSo, AreSo areSo, const QVector<int> &roles);

    QSet<QString> m_favorites;
    QString m_upscaling;
    QString m_wallpaper;
    PictureWidths m_widths;
};

} // namespace quorvane
