#pragma once

#include "Platform/Failure.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Copies of the wallpaper for desktops that cannot take the library's own file. A copy gets a new name each time,
/// because desktops keep what they once read under a name, and stays for as long as the desktop may read it again.
namespace quorvane::PictureCopy {

/// Where copies may lie, the best first: the state folder, then the session's own folder, which is gone after logout.
[[nodiscard]] QStringList folders();

/// Writes bytes whole under a new time-stamped name with the ending ("png") in folder, which is made where it is
/// missing. The path; a Failure holds the system's words.
[[nodiscard]] Result<QString> write(const QString &folder, const QByteArray &bytes, const QString &ending);

/// Whether the path is a copy's.
[[nodiscard]] bool isOurs(const QString &path);

/// Whether the file at copy is one of ours and holds exactly what the file at path holds.
[[nodiscard]] bool isCopyOf(const QString &copy, const QString &path);

/// Deletes the copies in all folders except keep (which may be empty: delete all). Touches no other file.
void removeAllBut(const QString &keep);

} // namespace quorvane::PictureCopy
