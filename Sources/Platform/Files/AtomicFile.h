#pragma once

#include "Platform/Failure.h"

#include <QByteArray>
#include <QString>

namespace quorvane {

/// Who may read a file that we write.
enum class FileAccess {
    Default,  ///< Whoever could read the file that is replaced; a new one as the user's umask says.
    OwnerOnly ///< Mode 0600 from the first moment, for the temporary file too.
};

/// Replaces the file at path with bytes so that a reader, a crash or a full disk leaves either the whole old or the
/// whole new content: a hidden temporary file in the same folder, fsync, rename, fsync of the folder. Where path is a
/// symbolic link, all of that happens to the file that it leads to, and the link stays.
/// A Failure holds the system's words; the old file is then untouched and the temporary one is gone. What is there and
/// is no regular file is not replaced. Blocks on the disk; may be called from any thread.
Result<> writeFileAtomically(const QString &path, const QByteArray &bytes, FileAccess access = FileAccess::Default);

/// The path of the file that writeFileAtomically(path) would write: where the links end that path leads to. A Failure
/// when they lead nowhere.
[[nodiscard]] Result<QString> writtenPath(const QString &path);

/// Removes temporary files in folder that a killed process left behind: only names that writeFileAtomically gives, and
/// only files that nobody writes any more. Whoever writes one holds an flock(2) on it; where the file system has none,
/// a file untouched for an hour is taken for abandoned.
void removeAbandonedTemporaries(const QString &folder);

/// The same for what writeFileAtomically(path) may have left: beside the file, and where path is a link beside what it
/// leads to.
void removeAbandonedTemporariesOf(const QString &path);

} // namespace quorvane
