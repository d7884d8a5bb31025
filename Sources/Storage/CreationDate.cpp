#include "Storage/CreationDate.h"

#include <QFile>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>

namespace quorvane {

QDateTime CreationDate::toDateTime() const
{
    return QDateTime::fromSecsSinceEpoch(seconds).toUTC().addMSecs(nanoseconds / 1'000'000);
}

std::optional<CreationDate> creationDate(const QString &path)
{
    return creationDate(AT_FDCWD, QFile::encodeName(path).constData());
}

std::optional<CreationDate> creationDate(int folderDescriptor, const char *name)
{
    struct statx status = {};
    if (::statx(folderDescriptor, name, AT_SYMLINK_NOFOLLOW, STATX_BTIME | STATX_MTIME, &status) != 0) {
        return std::nullopt;
    }
    if ((status.stx_mask & STATX_BTIME) != 0) {
        return CreationDate{status.stx_btime.tv_sec, status.stx_btime.tv_nsec};
    }
    if ((status.stx_mask & STATX_MTIME) != 0) {
        return CreationDate{status.stx_mtime.tv_sec, status.stx_mtime.tv_nsec};
    }
    return std::nullopt;
}

void sortNewestFirst(std::vector<DatedFile> *files)
{
    // An absent date compares as earlier than every date.
    std::stable_sort(files->begin(), files->end(),
                     [](const DatedFile &a, const DatedFile &b) { return a.created > b.created; });
}

} // namespace quorvane
