#include "Views/Gallery/GalleryModel.h"

#include <algorithm>

namespace quorvane {

QStringList previewList(const std::optional<QString> &selectedAlbumId, const std::vector<Album> &albums,
                        const QStringList &history)
{
    const auto selected = std::find_if(albums.begin(), albums.end(),
                                       [&selectedAlbumId](const Album &album) { return album.id == selectedAlbumId; });
    return selected != albums.end() ? selected->images : history;
}

void GalleryModel::attach()
{
    m_watcher = std::make_unique<LibraryWatcher>(manager());
    // The manager announces a new listing first by its history, then by its favourites, so one of the two suffices.
    connect(manager(), &WallpaperManager::favoritesChanged, this, &GalleryModel::update);
    connect(manager(), &WallpaperManager::upscalingURLChanged, this,
            [this] { m_imageList.setUpscaling(manager()->upscalingURL()); });
    update();
}

void GalleryModel::update()
{
    m_albumList.setAlbums(manager()->albums());
    const std::vector<Album> &albums = m_albumList.albums();
    const bool isGone = std::none_of(albums.begin(), albums.end(),
                                     [this](const Album &album) { return album.id == m_selectedAlbumId; });
    if (isGone) {
        m_selectedAlbumId.reset();
    }
    m_imageList.setImages(previewList(m_selectedAlbumId, albums, manager()->history()), manager()->favorites(),
                          ImageRecords::prompts());
    Q_EMIT stateChanged();
    Q_EMIT imagesChanged();
}

GalleryModel::State GalleryModel::state() const
{
    if (manager()->history().isEmpty()) {
        return State::Empty;
    }
    return m_selectedAlbumId ? State::Album : State::Albums;
}

QString GalleryModel::selectedAlbumTitle() const
{
    const std::vector<Album> &albums = m_albumList.albums();
    const auto selected = std::find_if(albums.begin(), albums.end(),
                                       [this](const Album &album) { return album.id == m_selectedAlbumId; });
    return selected != albums.end() ? albumTitle(selected->id, selected->isFavorites) : QString();
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
    m_selectedAlbumId = std::move(id);
    update();
}

bool GalleryModel::canUsePrompt() const
{
    return m_selectedAlbumId && m_selectedAlbumId != QLatin1String("Favorites") &&
           m_selectedAlbumId != QLatin1String("Uncategorized");
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
    manager()->deleteImage(url);
}

int GalleryModel::columns(double width)
{
    constexpr double kNarrowest = 220;
    constexpr double kSpacing = 20;
    return std::max(1, int((width + kSpacing) / (kNarrowest + kSpacing)));
}

} // namespace quorvane
