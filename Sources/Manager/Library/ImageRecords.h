#pragma once

#include "Storage/CreationDate.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

#include <optional>

/// What the library knows about a picture, for the windows. Every call reads the disk; any thread. A location is an
/// absolute path; of a picture outside the library nothing is known, even if one in it has the same name.
namespace quorvane::ImageRecords {

/// The last component of path: what the records know a picture by.
[[nodiscard]] QString fileName(const QString &path);

/// The folder that holds the pictures and their records.
[[nodiscard]] QString folder();

/// The enlarged copy that is recorded for original, whether or not it still exists.
[[nodiscard]] std::optional<QString> recordedCopy(const QString &original);

/// The picture that image was enlarged from, whether or not it still exists.
[[nodiscard]] std::optional<QString> recordedOriginal(const QString &image);

/// What a preview says of a picture.
struct Facts
{
    std::optional<QString> prompt;   ///< The one it was made with.
    std::optional<QString> original; ///< As recordedOriginal() has it.
    bool hasPartner = false;         ///< Whether it is one of a pair whose other picture exists.
};
[[nodiscard]] Facts factsOf(const QString &image);

/// created in local time, as momentText() writes it; empty where it could not be read.
[[nodiscard]] QString timestamp(const std::optional<CreationDate> &created);

/// A moment for people: "Jan 31, 23:59" in English, else with the names and in the order of the locale's language.
[[nodiscard]] QString momentText(const QDateTime &moment, const QLocale &locale);

} // namespace quorvane::ImageRecords
