#pragma once

#include "Storage/CreationDate.h"
#include "Storage/SideFile.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace quorvane {

/// A group of pictures in the gallery.
struct Album
{
    QString id;               ///< The prompt they share; "Uncategorized" without one, "Favorites" for the favourites.
    QStringList images;       ///< Paths in display order; the first is the cover. Never empty.
    bool isFavorites = false; ///< Tells the favourites from a prompt of that name.

    friend bool operator==(const Album &, const Album &) = default;
};

/// What people read as the name of an album: its prompt, or in their language that of the favourites (isFavorites) and
/// of the pictures without a prompt. Its id stays the same in every language.
[[nodiscard]] QString albumTitle(const QString &id, bool isFavorites);

/// The creation date of the file at a path; nothing when it cannot be read.
using CreationDateOf = std::function<std::optional<CreationDate>(const QString &path)>;

/// Groups history (paths, newest first) by the prompts recorded under the file names. Inside an album favourites come
/// first; albums are ordered by the creation date of their cover, latest first, and an album whose date cannot be read
/// keeps its place. The favourites album stands in front when it has a picture.
[[nodiscard]] std::vector<Album> albumsOf(const QStringList &history, const QSet<QString> &favorites,
                                          const TextMap &prompts, const CreationDateOf &creationDate);

/// all without the originals whose enlarged variant is itself among all. links leads from an original's file name to
/// its variant's.
[[nodiscard]] QStringList withoutHiddenOriginals(const QStringList &all, const TextMap &links);
} // namespace quorvane
