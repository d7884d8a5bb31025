#pragma once

#include "Platform/Failure.h"
#include "Storage/ImageNames.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

/// The library on disk: the images of the folder "Pictures/Quorvane" in the home, and three side files in it that say
/// with which prompt an image was made ("prompts.json"), which image is its enlarged copy ("variants.json") and which
/// ones are favourites ("favorites.json").
///
/// An image is known by its file name alone, whatever path it is handed in by: whoever has a path from elsewhere asks
/// isInLibrary() first. Nothing is cached: every call goes to the disk. What cannot be read is empty; what cannot be
/// written stays as it was, and the Failure says so in words for people. Any thread and any number of processes may
/// call at once without losing each other's changes.
class ImageStore
{
  public:
    ImageStore() = delete;

    /// The absolute path of the library folder, which is created when it is not there.
    [[nodiscard]] static QString directory();

    [[nodiscard]] static QString promptsPath();   ///< The side file of prompts, there or not. Makes the folder.
    [[nodiscard]] static QString variantsPath();  ///< The side file of enlarged copies, likewise.
    [[nodiscard]] static QString favoritesPath(); ///< The side file of favourites, likewise.

    /// The paths of all images, newest first; equal dates keep the order of the folder's listing. An image is any
    /// visible entry that ends in .png, .jpg, .jpeg or .webp in any case. Names that are not UTF-8 are left out, for
    /// no path could lead to them.
    [[nodiscard]] static QStringList allImages();

    /// Whether path is that of an entry of the library, there or not, and not of a namesake elsewhere. A link elsewhere
    /// that leads to an image of the library is no entry of it; a link in the library is.
    [[nodiscard]] static bool isInLibrary(const QString &path);

    /// Puts bytes into the library under name, replacing an image of that name: whole, or not at all. The path of the
    /// image. Fails when it could not be written or name is not a plain file name.
    [[nodiscard]] static Result<QString> saveImage(const QString &name, const QByteArray &bytes);

    /// Records the prompt with which image was made.
    static Result<> savePrompt(const QString &prompt, const QString &image);

    /// Records that upscaled is the enlarged copy of original.
    static Result<> saveVariantLink(const QString &original, const QString &upscaled);

    /// The other one of image's pair, the enlarged copy or the original, if that file exists. Only names of images are
    /// followed.
    [[nodiscard]] static std::optional<QString> variant(const QString &image);

    static Result<> saveFavorite(const QString &name);   ///< Adds the file's name, once, to the sorted favourites.
    static Result<> removeFavorite(const QString &name); ///< Takes it out again; one that is none is no failure.

    /// Deletes image, its enlarged copy or its original, and every entry that names one of them. For good: nothing
    /// goes to a wastebasket. Of folders only an empty one is deleted. Everything is tried; the first thing that could
    /// not be done is the Failure. A file that is gone already is none.
    static Result<> deleteImage(const QString &image);

    /// Removes what a killed process left half-written; see AtomicFile.h. Once per launch is enough.
    static void removeAbandonedTemporaries();
};

} // namespace quorvane
