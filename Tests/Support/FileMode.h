#pragma once

#include <QFile>
#include <QString>

#include <sys/stat.h>

namespace quorvane {

/// The permissions of what lies at path, a link's own where that is one; none at all where nothing does.
[[nodiscard]] inline mode_t modeOf(const QString &path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

[[nodiscard]] inline bool setMode(const QString &path, mode_t mode)
{
    return ::chmod(QFile::encodeName(path).constData(), mode) == 0;
}

} // namespace quorvane
