// The library as the gallery shows it.

#include "Manager/WallpaperManager.h"
#include "Platform/Threads/Worker.h"
#include "Storage/CreationDate.h"
#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"

namespace quorvane {

WallpaperManager::Listing WallpaperManager::readLibrary()
{
    const QStringList all = ImageStore::allImages();
    const auto links = readTextMap(ImageStore::variantsPath());
    const QStringList favorites = readTextList(ImageStore::favoritesPath());
    return {withoutHiddenOriginals(all, links), QSet<QString>(favorites.begin(), favorites.end())};
}

/// Only begins: a large library takes longer than a frame, and a program that starts has better things to do meanwhile.
void WallpaperManager::beginHistory()
{
    auto listing = std::make_shared<Listing>();
    auto read = [listing] {
        *listing = readLibrary();
        ThreadHandover::giving(listing.get());
    };
    m_firstListing = {runOnPool(&m_libraryThread, std::move(read)), listing};
    m_scope.start(readingHistoryFirst());
}

QCoro::Task<> WallpaperManager::readingHistoryFirst()
{
    QFuture<void> reading = m_firstListing.reading;
    co_await EndOf(std::move(reading));
    (void)listing();
    Q_EMIT historyChanged();
    Q_EMIT favoritesChanged();
}

const WallpaperManager::Listing &WallpaperManager::listing() const
{
    if (m_firstListing.listing) {
        m_firstListing.reading.waitForFinished();
        ThreadHandover::taking(m_firstListing.listing.get());
        m_listing = std::move(*m_firstListing.listing);
        m_firstListing = {};
    }
    return m_listing;
}

void WallpaperManager::setListing(Listing listing)
{
    m_firstListing = {};
    m_listing = std::move(listing);
    Q_EMIT historyChanged();
    Q_EMIT favoritesChanged();
}

void WallpaperManager::reloadHistory()
{
    ++m_historyVersion;
    setListing(readLibrary());
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
        listing = co_await onWorker(&m_libraryThread, &WallpaperManager::readLibrary);
    } while (version != m_historyVersion);
    setListing(std::move(listing));
}

void WallpaperManager::toggleFavorite(const QString &url)
{
    const QString name = imageName(url);
    const bool isFavorite = !favorites().contains(name);
    if (isFavorite) {
        m_listing.favorites.insert(name);
    } else {
        m_listing.favorites.remove(name);
    }
    ++m_historyVersion;
    Q_EMIT favoritesChanged();
    m_scope.start(writingFavorite(name, isFavorite, m_nextOperation++));
}

QCoro::Task<> WallpaperManager::writingFavorite(QString name, bool isFavorite, quint64 operation)
{
    auto write = [name, isFavorite] {
        if (isFavorite) {
            (void)ImageStore::saveFavorite(name);
        } else {
            (void)ImageStore::removeFavorite(name);
        }
    };
    co_await onWorker(&m_libraryThread, std::move(write));
    Q_EMIT operationEnded({.file = {}, .original = {}, .operation = operation});
}

std::vector<Album> WallpaperManager::albums() const
{
    const auto prompts = readTextMap(ImageStore::promptsPath());
    const auto dateOf = [](const QString &path) { return creationDate(path); };
    return albumsOf(history(), favorites(), prompts, dateOf);
}

void WallpaperManager::deleteImage(const QString &url)
{
    m_scope.start(deletingImage(url, m_nextOperation++));
}

QCoro::Task<> WallpaperManager::deletingImage(QString url, quint64 operation)
{
    auto remove = [url] { (void)ImageStore::deleteImage(url); };
    co_await onWorker(&m_libraryThread, std::move(remove));
    co_await reloadingHistory();
    Q_EMIT operationEnded({.file = {}, .original = {}, .operation = operation});
}

} // namespace quorvane
