#include "Manager/Library/Library.h"

#include "Manager/Library/Album.h"
#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/UserDefaults.h"
#include "Platform/Pictures/PictureCopy.h"
#include "Platform/System/Autostart.h"
#include "Platform/Threads/Worker.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Storage/SideFile.h"
#include "Upscaling/Network/ModelFiles.h"

#include <QFileInfo>

namespace quorvane {

Library::Library(TaskScope &tasks, QObject *parent)
    : QObject(parent)
{
    m_thread.setMaxThreadCount(1);
    auto listing = std::make_shared<Listing>();
    auto read = [listing] {
        *listing = Library::read();
        ThreadHandover::giving(listing.get());
    };
    m_first = {runOnPool(&m_thread, std::move(read)), listing};
    tasks.start(tellingOfTheFirst());
}

Library::Listing Library::read()
{
    const QStringList all = ImageStore::allImages();
    const auto links = readTextMap(ImageStore::variantsPath());
    const QStringList favorites = readTextList(ImageStore::favoritesPath());
    return {withoutHiddenOriginals(all, links), QSet<QString>(favorites.begin(), favorites.end())};
}

QCoro::Task<> Library::tellingOfTheFirst()
{
    QFuture<void> reading = m_first.reading;
    co_await EndOf(std::move(reading));
    (void)listing();
    Q_EMIT historyChanged();
    Q_EMIT favoritesChanged();
}

const Library::Listing &Library::listing() const
{
    if (m_first.listing) {
        m_first.reading.waitForFinished();
        ThreadHandover::taking(m_first.listing.get());
        m_listing = std::move(*m_first.listing);
        m_first = {};
    }
    return m_listing;
}

void Library::setListing(Listing listing)
{
    m_first = {};
    m_listing = std::move(listing);
    Q_EMIT historyChanged();
    Q_EMIT favoritesChanged();
}

void Library::reload()
{
    ++m_version;
    setListing(read());
}

QCoro::Task<> Library::refreshing()
{
    Listing listing;
    int version = 0;
    do {
        // A favourite toggled while the library is read would be undone by what was read before it.
        version = m_version;
        listing = co_await onWorker(&m_thread, &Library::read);
    } while (version != m_version);
    setListing(std::move(listing));
}

QCoro::Task<Result<KeptPicture>> Library::keeping(NewPicture picture)
{
    auto keep = [picture = std::move(picture)] { return keepPicture(picture); };
    co_return co_await onWorker(&m_thread, std::move(keep));
}

/// In one go, so that a deletion of the original that comes in between finds either nothing of the copy or the whole.
QCoro::Task<std::optional<Result<KeptPicture>>> Library::keepingCopy(NewPicture copy)
{
    auto keep = [copy = std::move(copy)]() mutable -> std::optional<Result<KeptPicture>> {
        if (!QFileInfo::exists(copy.original)) {
            return std::nullopt;
        }
        copy.prompt = recordedPrompt(copy.original);
        return keepPicture(copy);
    };
    co_return co_await onWorker(&m_thread, std::move(keep));
}

bool Library::toggleFavorite(const QString &name)
{
    const bool isFavorite = !favorites().contains(name);
    if (isFavorite) {
        m_listing.favorites.insert(name);
    } else {
        m_listing.favorites.remove(name);
    }
    ++m_version;
    Q_EMIT favoritesChanged();
    return isFavorite;
}

QCoro::Task<Result<>> Library::writingFavorite(QString name, bool isFavorite)
{
    auto write = [name, isFavorite] {
        return isFavorite ? ImageStore::saveFavorite(name) : ImageStore::removeFavorite(name);
    };
    co_return co_await onWorker(&m_thread, std::move(write));
}

QCoro::Task<Result<>> Library::deleting(QString url)
{
    auto remove = [url] { return ImageStore::deleteImage(url); };
    Result<> removed = co_await onWorker(&m_thread, std::move(remove));
    co_await refreshing();
    co_return removed;
}

QCoro::Task<Deletion::Outcome> Library::deletingRevocably(QStringList urls)
{
    auto remove = [urls] { return Deletion::of(urls); };
    Deletion::Outcome outcome = co_await onWorker(&m_thread, std::move(remove));
    co_await refreshing();
    co_return outcome;
}

QCoro::Task<Result<>> Library::bringingBack(std::shared_ptr<Deletion> deletion)
{
    auto undo = [deletion] { return deletion->undo(); };
    Result<> restored = co_await onWorker(&m_thread, std::move(undo));
    co_await refreshing();
    co_return restored;
}

QCoro::Task<> Library::forgetting(std::shared_ptr<Deletion> deletion)
{
    auto forget = [deletion = std::move(deletion)]() mutable { deletion.reset(); };
    co_await onWorker(&m_thread, std::move(forget));
}

QCoro::Task<> Library::removingAbandonedFiles()
{
    auto remove = [] {
        Deletion::removeAbandoned();
        ImageStore::removeAbandonedTemporaries();
        Keychain::removeAbandonedTemporaries();
        for (const QString &path : {UserDefaults::defaultPath(), userModelPath(), autostartEntryPath()}) {
            removeAbandonedTemporariesOf(path);
        }
        for (const QString &folder : PictureCopy::folders()) {
            removeAbandonedTemporaries(folder);
        }
    };
    co_await onWorker(&m_thread, std::move(remove));
}

} // namespace quorvane
