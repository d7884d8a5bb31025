#include "Manager/Library/GalleryListing.h"

#include "Storage/ImageStore.h"

#include <QDateTime>
#include <QFileInfo>

#include <utility>

namespace quorvane {

namespace {

std::vector<PictureEntry> entriesOf(const QStringList &paths, const TextMap &prompts)
{
    std::vector<PictureEntry> entries;
    entries.reserve(std::size_t(paths.size()));
    for (const QString &path : paths) {
        const auto prompt = prompts.find(imageName(path));
        entries.push_back({.path = path,
                           .stamp = fileStamp(path),
                           .prompt = prompt != prompts.end() ? prompt->second : QString(),
                           .created = creationDate(path)});
    }
    return entries;
}

} // namespace

FileStamp fileStamp(const QString &path)
{
    const QFileInfo file(path);
    // Not when its bytes were written last: a file that was away for a while and came back as it was is to be read
    // again, because in between it may have been found unreadable. This moment is later than that one, or the same.
    return file.exists() ? FileStamp{file.metadataChangeTime().toMSecsSinceEpoch(), file.size()} : FileStamp{};
}

GalleryListing readGallery(const QStringList &history, const QSet<QString> &favorites,
                           const std::optional<QString> &albumId)
{
    const TextMap prompts = readTextMap(ImageStore::promptsPath());
    const auto dateOf = [](const QString &path) { return creationDate(path); };
    GalleryListing listing;
    for (Album &album : albumsOf(history, favorites, prompts, dateOf)) {
        if (!listing.pictures && album.id == albumId) {
            listing.pictures = entriesOf(album.images, prompts);
        }
        const FileStamp cover = fileStamp(album.images.first());
        listing.albums.push_back({std::move(album), cover});
    }
    return listing;
}

} // namespace quorvane
