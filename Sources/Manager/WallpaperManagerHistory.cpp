// The library as the gallery shows it.

#include "Manager/WallpaperManager.h"
#include "Platform/Worker.h"
#include "Storage/CreationDate.h"
#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"

namespace quorvane {

namespace {

struct Listing
{
    QStringList history;
    QSet<QString> favorites;
};

Listing readLibrary()
{
    const QStringList all = ImageStore::allImages();
    const auto links = readTextMap(ImageStore::variantsPath());
    const QStringList favorites = readTextList(ImageStore::favoritesPath());
    return {withoutHiddenOriginals(all, links), QSet<QString>(favorites.begin(), favorites.end())};
}

} // namespace

void WallpaperManager::reloadHistory()
{
    ++m_historyVersion;
    Listing listing = readLibrary();
    m_history = std::move(listing.history);
    m_favorites = std::move(listing.favorites);
    Q_EMIT historyChanged();
    Q_EMIT favoritesChanged();
}

void WallpaperManager::refreshHistory()
{
    m_scope.start(reloadingHistory());
}

/// As reloadHistory(), read on the library's thread after everything that was asked of it before.
QCoro::Task<> WallpaperManager::reloadingHistory()
{
    Listing listing;
    int version = 0;
    do {
        // A favourite toggled while the library is read would be undone by what was read before it.
        version = m_historyVersion;
        listing = co_await onWorker(&m_libraryThread, readLibrary);
    } while (version != m_historyVersion);
    m_history = std::move(listing.history);
    m_favorites = std::move(listing.favorites);
    Q_EMIT historyChanged();
    Q_EMIT favoritesChanged();
}

void WallpaperManager::toggleFavorite(const QString &url)
{
    const QString name = imageName(url);
    const bool isFavorite = !m_favorites.contains(name);
    if (isFavorite) {
        m_favorites.insert(name);
    } else {
        m_favorites.remove(name);
    }
    ++m_historyVersion;
    Q_EMIT favoritesChanged();
    m_scope.start(writingFavorite(name, isFavorite, m_nextOperation++));
}

QCoro::Task<> WallpaperManager::writingFavorite(QString name, bool isFavorite, quint64 operation)
{
    auto write = [name, isFavorite] {
        if (isFavorite) {
            ImageStore::saveFavorite(name);
        } else {
            ImageStore::removeFavorite(name);
        }
    };
    co_await onWorker(&m_libraryThread, std::move(write));
    Q_EMIT operationEnded({.file = {}, .original = {}, .operation = operation});
}

std::vector<Album> WallpaperManager::albums() const
{
    const auto prompts = readTextMap(ImageStore::promptsPath());
    const auto dateOf = [](const QString &path) { return creationDate(path); };
    return albumsOf(m_history, m_favorites, prompts, dateOf);
}

void WallpaperManager::deleteImage(const QString &url)
{
    m_scope.start(deletingImage(url, m_nextOperation++));
}

QCoro::Task<> WallpaperManager::deletingImage(QString url, quint64 operation)
{
    auto remove = [url] { ImageStore::deleteImage(url); };
    co_await onWorker(&m_libraryThread, std::move(remove));
    co_await reloadingHistory();
    Q_EMIT operationEnded({.file = {}, .original = {}, .operation = operation});
}

} // namespace quorvane
