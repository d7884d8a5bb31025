#pragma once

#include "Platform/Failure.h"
#include "Platform/Files/AtomicFile.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>
#include <set>

/// The small JSON files beside the images and the key file: an object of texts or an array of texts. Reading never
/// fails: what is missing, unreadable, malformed or of another shape counts as empty as a whole; before it is replaced
/// it is put aside. Any thread.
namespace quorvane {

/// Texts under names, in plain ascending order of UTF-16 code units, which is also the order in the file.
using TextMap = std::map<QString, QString>;

/// A side file may be this large: twenty-five thousand prompts of ten thousand characters stay below it, and a file
/// that is none of ours cannot fill the memory. Nothing larger is written either, so what was written can be read
/// again.
inline constexpr qsizetype kLargestSideFileBytes = qsizetype(256) * 1024 * 1024;

/// An object whose values are all texts; of a repeated name the last entry counts. Nothing when the bytes are not that.
[[nodiscard]] std::optional<TextMap> understoodTextMap(const QByteArray &bytes);

/// An array whose elements are all texts, in its own order. Nothing when the bytes are not that.
[[nodiscard]] std::optional<QStringList> understoodTextList(const QByteArray &bytes);

/// The same, and empty when the bytes are not that.
[[nodiscard]] TextMap textMapFromBytes(const QByteArray &bytes);
[[nodiscard]] QStringList textListFromBytes(const QByteArray &bytes);

/// Compact UTF-8 JSON with sorted names and without a trailing newline; nothing when it would be too large.
[[nodiscard]] std::optional<QByteArray> bytesFromTextMap(const TextMap &map);

/// Compact UTF-8 JSON in the list's own order; nothing when it would be too large.
[[nodiscard]] std::optional<QByteArray> bytesFromTextList(const QStringList &list);

/// The content of the regular file at path.
[[nodiscard]] TextMap readTextMap(const QString &path);

/// The content of the regular file at path.
[[nodiscard]] QStringList readTextList(const QString &path);

/// What comes of looking at a side file's content in order to change it.
enum class Change {
    Write,     ///< Write it back, whether or not anything changed.
    LeaveAlone ///< Nothing was changed: do not touch the file.
};

/// Reads the file at path, lets change alter the content, and writes it back, whole or not at all. What is there and
/// was not understood is put aside before (see AsideFile.h), and a notice is left. Whoever calls keeps others away
/// meanwhile (see FolderLock.h). A Failure says which file and why, in words for people.
Result<> changeTextMap(const QString &path, FileAccess access, const std::function<Change(TextMap &)> &change);
Result<> changeTextList(const QString &path, FileAccess access, const std::function<Change(QStringList &)> &change);

/// The same for a list that is kept sorted, each text once.
Result<> changeTextSet(const QString &path, FileAccess access,
                       const std::function<Change(std::set<QString> &)> &change);

} // namespace quorvane
