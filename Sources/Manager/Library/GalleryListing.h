#pragma once

#include "Manager/Library/Album.h"

#include <optional>
#include <vector>

namespace quorvane {

/// Tells one content of a file from the next, as far as its entry in the folder does; all 0 for one that is not there.
struct FileStamp
{
    qint64 modified = 0; ///< Milliseconds since 1970-01-01 00:00 UTC.
    qint64 sizeBytes = 0;

    friend bool operator==(const FileStamp &, const FileStamp &) = default;
};

/// Any thread.
[[nodiscard]] FileStamp fileStamp(const QString &path);

/// A picture, and what is told beside it.
struct PictureEntry
{
    QString path;
    FileStamp stamp;
    QString prompt; ///< Empty where none is recorded.
    std::optional<CreationDate> created;

    friend bool operator==(const PictureEntry &, const PictureEntry &) = default;
};

/// An album, and what tells its cover.
struct AlbumEntry
{
    Album album;
    FileStamp cover;

    friend bool operator==(const AlbumEntry &, const AlbumEntry &) = default;
};

/// What the gallery shows.
struct GalleryListing
{
    std::vector<AlbumEntry> albums;
    /// The pictures of the first album whose id was asked for; nothing where there is none.
    std::optional<std::vector<PictureEntry>> pictures;
};

/// Reads the records and the files' entries; some milliseconds for some thousand pictures. Any thread.
[[nodiscard]] GalleryListing readGallery(const QStringList &history, const QSet<QString> &favorites,
                                         const std::optional<QString> &albumId);

} // namespace quorvane
