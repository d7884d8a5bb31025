#pragma once

#include <QByteArray>
#include <QString>

namespace quorvane {

/// Who may read a file that we write.
enum class FileAccess {
    Default,  ///< As the user's umask says (usually everyone may read).
    OwnerOnly ///< Mode 0600 from the first moment, for the temporary file too.
};

/// Replaces the file at path with bytes so that a reader, a crash or a full disk leaves either the whole old or the
/// whole new content: a hidden temporary file in the same folder, fsync, rename, fsync of the folder.
/// Returns false when any step failed; the old file is then untouched and the temporary one is gone.
/// Blocks on the disk; may be called from any thread.
[[nodiscard]] bool writeFileAtomically(const QString &path, const QByteArray &bytes,
                                       FileAccess access = FileAccess::Default);

/// Removes temporary files in folder that a killed process left behind. Only names that writeFileAtomically gives, and
/// only files untouched for an hour, so that another process's running write is never disturbed.
void removeAbandonedTemporaries(const QString &folder);

} // namespace quorvane
