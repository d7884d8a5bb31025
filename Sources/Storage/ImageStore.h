#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

/// The library on disk: the images of the folder "Pictures/Quorvane" in the home, and three side files in it that say
/// with which prompt an image was made ("prompts.json"), which image is its enlarged copy ("variants.json") and which
/// ones are favourites ("favorites.json").
///
/// An image is known by its file name alone, whatever path it is handed in by. Nothing is cached: every call goes to
/// the disk. No call reports an error: what cannot be read is empty, what cannot be written stays as it was. Any thread
/// and any number of processes may call at once without losing each other's changes.
class ImageStore
{
  public:
    ImageStore() = delete;

    /// The absolute path of the library folder, which is created when it is not there.
    [[nodiscard]] static QString directory();

    [[nodiscard]] static QString promptsPath();
    [[nodiscard]] static QString variantsPath();
    [[nodiscard]] static QString favoritesPath();

    /// The paths of all images, newest first; equal dates keep the order of the folder's listing. An image is any
    /// visible entry that ends in .png, .jpg, .jpeg or .webp in any case. Names that are not UTF-8 are left out, for
    /// no path could lead to them.
    [[nodiscard]] static QStringList allImages();

    /// Puts bytes into the library under name, replacing an image of that name: whole, or not at all. The path of the
    /// image, or nothing when it could not be written or name is not a plain file name.
    [[nodiscard]] static std::optional<QString> saveImage(const QString &name, const QByteArray &bytes);

    /// Records the prompt with which image was made.
    static void savePrompt(const QString &prompt, const QString &image);

    /// Records that upscaled is the enlarged copy of original.
    static void saveVariantLink(const QString &original, const QString &upscaled);

    /// The other one of image's pair, the enlarged copy or the original, if that file exists.
    [[nodiscard]] static std::optional<QString> variant(const QString &image);

    static void saveFavorite(const QString &name);
    static void removeFavorite(const QString &name);

    /// Deletes image, its enlarged copy or its original, and every entry that names one of them. For good: nothing
    /// goes to a wastebasket. Of folders only an empty one is deleted.
    static void deleteImage(const QString &image);

    /// Removes what a killed process left half-written; see AtomicFile.h. Once per launch is enough.
    static void removeAbandonedTemporaries();
};

/// The last component of path, extension included: what the side files know an image by.
[[nodiscard]] QString imageName(const QString &path);

} // namespace quorvane
