#pragma once

#include "Manager/ImageRecords.h"

#include <QAbstractListModel>
#include <QSet>

namespace quorvane {

/// The pictures of one album for the grid. What a tile says beside the picture is read when the tile is shown.
class ImageListModel : public QAbstractListModel
{
    Q_OBJECT

  public:
    enum Role { UrlRole = Qt::UserRole + 1, ThumbnailRole, IsFavoriteRole, PromptRole, TimestampRole, IsUpscalingRole };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] const QStringList &images() const { return m_images; }

    /// Rows that stay where they are keep their tiles.
    void setImages(const QStringList &images, const QSet<QString> &favorites, TextMap prompts);

    /// The picture that is being enlarged; empty for none.
    void setUpscaling(const QString &url);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  private:
    QStringList m_images;
    QSet<QString> m_favorites;
    TextMap m_prompts;
    QString m_upscaling;
};

} // namespace quorvane
