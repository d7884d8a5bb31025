#include "Views/Gallery/GalleryModel.h"

#include "Manager/Undo/Deletions.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

QStringList previewList(const std::optional<QString> &selectedAlbumId, const std::vector<AlbumEntry> &albums,
                        const QStringList &history)
{
    const auto selected = std::find_if(albums.begin(), albums.end(), [&selectedAlbumId](const AlbumEntry &entry) {
        return entry.album.id == selectedAlbumId;
    });
    return selected != albums.end() ? selected->album.images : history;
}

GalleryModel::GalleryModel(QObject *parent)
    : ViewModel(parent)
    , m_reading([this](GalleryListing listing) { show(std::move(listing)); })
    , m_measuring([this](PictureWidths widths) { m_imageList.setWidths(std::move(widths)); })
{
}

void GalleryModel::attach()
{
    m_watcher = std::make_unique<LibraryWatcher>(manager());
    // The manager announces a new listing first by its history, then by its favourites, so one of the two suffices.
    connect(manager(), &WallpaperManager::favoritesChanged, this, &GalleryModel::update);
    connect(manager(), &WallpaperManager::upscalingURLChanged, this,
            [this] { m_imageList.setUpscaling(manager()->upscalingURL()); });
    connect(&manager()->deletions().undo(), &Undo::isOfferedChanged, this, &GalleryModel::canUndoChanged);
    connect(&manager()->deletions(), &Deletions::broughtBack, this,
            [this](const QStringList &urls) { Q_EMIT broughtBack(urls.constFirst()); });
    m_imageList.setCurrentWallpaper(manager()->currentWallpaperURL());
    connect(manager(), &WallpaperManager::currentWallpaperURLChanged, this,
            [this] { m_imageList.setCurrentWallpaper(manager()->currentWallpaperURL()); });
    if (manager()->isHistoryRead()) {
        update();
    }
}

/// The manager's part is shown at once; what lies on the disk follows.
void GalleryModel::update()
{
    m_imageList.setFavorites(manager()->favorites());
    m_reading.ask([history = manager()->history(), favorites = manager()->favorites(), id = m_selectedAlbumId] {
        return readGallery(history, favorites, id);
    });
    announce();
}

void GalleryModel::show(GalleryListing listing)
{
    if (m_selectedAlbumId && !listing.pictures) {
        m_selectedAlbumId.reset();
    }
    m_albumList.setAlbums(std::move(listing.albums));
    std::vector<PictureEntry> pictures = std::move(listing.pictures).value_or(std::vector<PictureEntry>());
    if (m_keepsOrder) {
        keepOrder(&pictures);
    }
    m_imageList.setPictures(std::move(pictures));
    m_measuring.ask(
        [pictures = m_imageList.entries(), known = m_imageList.widths()] { return readWidths(pictures, known); });
    announce();
}

/// Puts the pictures into the order in which they are shown, where they are the same ones.
void GalleryModel::keepOrder(std::vector<PictureEntry> *pictures) const
{
    QHash<QString, qsizetype> rows;
    for (const PictureEntry &entry : m_imageList.entries()) {
        rows.insert(entry.path, rows.size());
    }
    const auto isShown = [&rows](const PictureEntry &entry) { return rows.contains(entry.path); };
    if (rows.size() == qsizetype(pictures->size()) && std::all_of(pictures->begin(), pictures->end(), isShown)) {
        std::sort(pictures->begin(), pictures->end(), [&rows](const PictureEntry &one, const PictureEntry &other) {
            return rows.value(one.path) < rows.value(other.path);
        });
    }
}

void GalleryModel::setKeepsOrder(bool keeps)
{
    if (m_keepsOrder != keeps) {
        m_keepsOrder = keeps;
        Q_EMIT keepsOrderChanged();
        if (!keeps) {
            update();
        }
    }
}

void GalleryModel::announce()
{
    m_images = previewList(m_selectedAlbumId, m_albumList.entries(), manager()->history());
    Q_EMIT stateChanged();
    Q_EMIT imagesChanged();
}

GalleryModel::State GalleryModel::state() const
{
    if (!manager()->isHistoryRead()) {
        return State::Reading;
    }
    if (manager()->history().isEmpty()) {
        return State::Empty;
    }
    return m_selectedAlbumId ? State::Album : State::Albums;
}

QString GalleryModel::selectedAlbumTitle() const
{
    const std::vector<AlbumEntry> &entries = m_albumList.entries();
    const auto selected = std::find_if(entries.begin(), entries.end(),
                                       [this](const AlbumEntry &entry) { return entry.album.id == m_selectedAlbumId; });
    return selected != entries.end() ? albumTitle(selected->album.id, selected->album.isFavorites) : QString();
}

void GalleryModel::openAlbum(const QString &id)
{
    select(id);
}

void GalleryModel::closeAlbum()
{
    select(std::nullopt);
}

void GalleryModel::select(std::optional<QString> id)
{
    if (id != m_selectedAlbumId) {
        m_selectedAlbumId = std::move(id);
        m_imageList.setPictures({});
        update();
    }
}

bool GalleryModel::canUsePrompt() const
{
    return m_selectedAlbumId && m_selectedAlbumId != "Favorites"_L1 && m_selectedAlbumId != "Uncategorized"_L1;
}

void GalleryModel::usePrompt()
{
    if (canUsePrompt()) {
        Q_EMIT promptChosen(*m_selectedAlbumId);
    }
}

void GalleryModel::apply(const QString &url)
{
    manager()->setWallpaper(url);
}

void GalleryModel::toggleFavorite(const QString &url)
{
    manager()->toggleFavorite(url);
}

void GalleryModel::remove(const QString &url)
{
    manager()->deletions().remove({url});
}

bool GalleryModel::canUndo() const
{
    return manager()->deletions().undo().isOffered();
}

void GalleryModel::undo()
{
    manager()->deletions().undo().undo();
}

int GalleryModel::columns(double width)
{
    constexpr double kNarrowest = 220;
    constexpr double kSpacing = 20;
    return std::max(1, int((width + kSpacing) / (kNarrowest + kSpacing)));
}

} // namespace quorvane
