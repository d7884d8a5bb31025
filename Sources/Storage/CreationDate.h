#pragma once

#include <QDateTime>
#include <QString>

#include <compare>
#include <optional>
#include <vector>

namespace quorvane {

/// When a file came into being, as exactly as the file system tells.
struct CreationDate
{
    qint64 seconds = 0;      ///< Since 1970-01-01 00:00 UTC; may be negative.
    quint32 nanoseconds = 0; ///< 0 to 999,999,999.

    /// Rounded down to milliseconds, in UTC.
    [[nodiscard]] QDateTime toDateTime() const;

    friend auto operator<=>(const CreationDate &, const CreationDate &) = default;
};

/// The creation date of the entry at path (of a symbolic link itself, not of its target), or its modification date
/// where the file system keeps none. Nothing when neither can be read. Any thread.
[[nodiscard]] std::optional<CreationDate> creationDate(const QString &path);

/// As above, for the entry name of the open folder.
[[nodiscard]] std::optional<CreationDate> creationDate(int folderDescriptor, const char *name);

/// A file and its date, read once.
struct DatedFile
{
    QString path;
    std::optional<CreationDate> created;
};

/// Newest first, undated last; equal dates keep their order.
void sortNewestFirst(std::vector<DatedFile> *files);

} // namespace quorvane
