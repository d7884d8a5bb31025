#pragma once

#include "Platform/Failure.h"
#include "Storage/SideFile.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <set>

/// What goes with a picture that is deleted: its enlarged copy or its original, and what the side files say of them.
/// Whoever calls keeps others away meanwhile (see FolderLock.h). Any thread.
namespace quorvane {

/// The path in folder of the picture that an entry calls name; nothing when that is no picture's name. A side file is
/// edited by hand now and then, and no entry of it may lead a deletion out of the library, to the library itself or to
/// one of its side files.
[[nodiscard]] std::optional<QString> linkedPath(const QString &folder, const QString &name);

/// Why the picture is still there, for people, by the errno of what was tried.
[[nodiscard]] Failure notDeleted(const QString &path, int error);

/// What the side files say of some pictures, by their names.
struct PictureEntries
{
    TextMap prompts;
    TextMap links; ///< The enlarged copy's name by its original's.
    QStringList favorites;

    friend bool operator==(const PictureEntries &, const PictureEntries &) = default;
};

/// The paths of these pictures as they were given, and of all that go with them, each once. Only names of images are
/// followed.
[[nodiscard]] QStringList withPartners(const QStringList &images);

/// The names of the pictures at these paths.
[[nodiscard]] std::set<QString> namesOf(const QStringList &paths);

/// What the side files say of the pictures with these names.
[[nodiscard]] PictureEntries entriesOf(const std::set<QString> &names);

/// Takes every entry that names one of these pictures out of the side files. Everything is tried; the first thing that
/// could not be done is the Failure. The file of prompts is written even when nothing in it changed.
Result<> dropEntriesOf(const std::set<QString> &names);

/// Puts the entries back. What has been said of the same pictures in the meantime stands.
Result<> restoreEntries(const PictureEntries &entries);

} // namespace quorvane
