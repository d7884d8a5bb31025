#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>

/// The small JSON files beside the images and the key file: an object of texts or an array of texts. Reading never
/// fails: what is missing, unreadable, malformed or of another shape counts as empty as a whole. Any thread.
namespace quorvane {

/// Texts under names, in plain ascending order of UTF-16 code units, which is also the order in the file.
using TextMap = std::map<QString, QString>;

/// A side file may be this large. Ten thousand prompts of four thousand characters stay below it, and a file that is
/// none of ours cannot fill the memory. Nothing larger is written either, so what was written can be read again.
inline constexpr qsizetype kLargestSideFileBytes = qsizetype(64) * 1024 * 1024;

/// An object whose values are all texts; of a repeated name the last entry counts.
[[nodiscard]] TextMap textMapFromBytes(const QByteArray &bytes);

/// An array whose elements are all texts, in its own order.
[[nodiscard]] QStringList textListFromBytes(const QByteArray &bytes);

/// Compact UTF-8 JSON with sorted names and without a trailing newline; nothing when it would be too large.
[[nodiscard]] std::optional<QByteArray> bytesFromTextMap(const TextMap &map);

/// Compact UTF-8 JSON in the list's own order; nothing when it would be too large.
[[nodiscard]] std::optional<QByteArray> bytesFromTextList(const QStringList &list);

/// The content of the regular file at path.
[[nodiscard]] TextMap readTextMap(const QString &path);

/// The content of the regular file at path.
[[nodiscard]] QStringList readTextList(const QString &path);

} // namespace quorvane
