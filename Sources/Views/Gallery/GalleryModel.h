#pragma once

#include "Manager/LibraryWatcher.h"
#include "Platform/Threads/LatestReading.h"
#include "Views/Gallery/AlbumListModel.h"
#include "Views/Gallery/ImageListModel.h"
#include "Views/ViewModel.h"

#include <memory>
#include <optional>

namespace quorvane {

/// The list that a preview steps through: the album of that id, the first one if several share it, or the whole history
/// where none is selected or the selected one is gone.
[[nodiscard]] QStringList previewList(const std::optional<QString> &selectedAlbumId,
                                      const std::vector<AlbumEntry> &albums, const QStringList &history);

/// The albums, the one that is open, and what can be done with its pictures.
class GalleryModel : public quorvane::ViewModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    Q_PROPERTY(QString selectedAlbumId READ selectedAlbumId NOTIFY stateChanged)
    Q_PROPERTY(QString selectedAlbumTitle READ selectedAlbumTitle NOTIFY stateChanged)
    Q_PROPERTY(bool canUsePrompt READ canUsePrompt NOTIFY stateChanged)
    Q_PROPERTY(bool keepsOrder READ keepsOrder WRITE setKeepsOrder NOTIFY keepsOrderChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY canUndoChanged)
    Q_PROPERTY(QStringList images READ images NOTIFY imagesChanged)
    Q_PROPERTY(QAbstractItemModel *albumList READ albumList CONSTANT)
    Q_PROPERTY(QAbstractItemModel *imageList READ imageList CONSTANT)

  public:
    enum class State {
        Reading, ///< For a moment after the start; nothing is known yet.
        Empty,
        Albums,
        Album
    };
    Q_ENUM(State)

    explicit GalleryModel(QObject *parent = nullptr);

    [[nodiscard]] State state() const;

    /// Empty while no album is open, and for the album of the empty prompt; state() tells them apart.
    [[nodiscard]] QString selectedAlbumId() const { return m_selectedAlbumId.value_or(QString()); }
    /// What people read as its name.
    [[nodiscard]] QString selectedAlbumTitle() const;
    Q_INVOKABLE void openAlbum(const QString &id);
    Q_INVOKABLE void closeAlbum();

    /// Whether the open album is that of a prompt.
    [[nodiscard]] bool canUsePrompt() const;
    /// Asks for the open album's prompt to be used.
    Q_INVOKABLE void usePrompt();

    [[nodiscard]] const QStringList &images() const { return m_images; }
    [[nodiscard]] QAbstractItemModel *albumList() { return &m_albumList; }
    [[nodiscard]] QAbstractItemModel *imageList() { return &m_imageList; }

    /// The row of that picture in imageList(); -1 where it is not in the open album.
    [[nodiscard]] Q_INVOKABLE int rowOf(const QString &url) const { return m_imageList.rowOf(url); }

    Q_INVOKABLE void apply(const QString &url);
    Q_INVOKABLE void toggleFavorite(const QString &url);

    /// While it is set the open album's pictures stay in the order in which they are shown, unless some come or go.
    [[nodiscard]] bool keepsOrder() const { return m_keepsOrder; }
    void setKeepsOrder(bool keeps);

    /// With the picture's enlarged partner; undo() brings both back while canUndo().
    Q_INVOKABLE void remove(const QString &url);
    [[nodiscard]] bool canUndo() const;
    Q_INVOKABLE void undo();

    /// How many columns of at least 220 points, 20 apart, fit; at least one.
    Q_INVOKABLE static int columns(double width);

  Q_SIGNALS:
    void stateChanged();
    void imagesChanged();
    void keepsOrderChanged();
    void canUndoChanged();
    /// This picture was deleted, and is there again.
    void broughtBack(const QString &url);
    void promptChosen(const QString &prompt);

  private:
    void attach() override;
    void select(std::optional<QString> id);
    void update();
    void show(GalleryListing listing);
    void announce();
    void keepOrder(std::vector<PictureEntry> *pictures) const;

    std::optional<QString> m_selectedAlbumId;
    QStringList m_images;
    bool m_keepsOrder = false;
    AlbumListModel m_albumList;
    ImageListModel m_imageList;
    std::unique_ptr<LibraryWatcher> m_watcher;
    LatestReading<GalleryListing> m_reading;
    LatestReading<PictureWidths> m_measuring;
};

} // namespace quorvane
