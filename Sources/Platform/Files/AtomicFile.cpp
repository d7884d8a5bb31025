#include "Platform/Files/AtomicFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// The leading dot keeps a leftover out of every listing, the ending tells it apart from other programs' hidden files.
constexpr auto kTemporaryEnding = ".quorvane-tmp";
constexpr qint64 kAbandonedAfterSeconds = 3600;

bool writeAll(int descriptor, const QByteArray &bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t count =
            ::write(descriptor, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        done += count;
    }
    return true;
}

mode_t currentUmask()
{
    // umask() can only be read by setting it, which would race with other threads; the kernel also tells it here.
    QFile status(u"/proc/self/status"_s);
    if (status.open(QIODevice::ReadOnly)) {
        const QByteArray text = status.readAll();
        const qsizetype at = text.indexOf("\nUmask:");
        if (at >= 0) {
            return static_cast<mode_t>(
                text.mid(at + 7, text.indexOf('\n', at + 1) - at - 7).trimmed().toUInt(nullptr, 8));
        }
    }
    return S_IWGRP | S_IRWXO;
}

void syncFolder(const QByteArray &folder)
{
    const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

} // namespace

bool writeFileAtomically(const QString &path, const QByteArray &bytes, FileAccess access)
{
    const QFileInfo target(path);
    const QByteArray folder = QFile::encodeName(target.absolutePath());
    QByteArray temporary =
        folder + "/." + QFile::encodeName(target.fileName()).left(200) + ".XXXXXX" + kTemporaryEnding;

    // mkostemps creates with mode 0600, so a key is never readable by others, not even for a moment.
    const int descriptor = ::mkostemps(temporary.data(), static_cast<int>(qstrlen(kTemporaryEnding)), O_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    bool ok = writeAll(descriptor, bytes);
    if (ok && access == FileAccess::Default) {
        ok = ::fchmod(descriptor, (S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH) & ~currentUmask()) == 0;
    }
    ok = ok && ::fsync(descriptor) == 0;
    ok = ::close(descriptor) == 0 && ok;
    ok = ok && ::rename(temporary.constData(), QFile::encodeName(target.absoluteFilePath()).constData()) == 0;
    if (!ok) {
        ::unlink(temporary.constData());
        return false;
    }
    syncFolder(folder);
    return true;
}

void removeAbandonedTemporaries(const QString &folder)
{
    const auto entries = QDir(folder).entryInfoList({u".*"_s + QLatin1String(kTemporaryEnding)},
                                                    QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    const QDateTime limit = QDateTime::currentDateTimeUtc().addSecs(-kAbandonedAfterSeconds);
    for (const QFileInfo &entry : entries) {
        if (entry.lastModified() < limit) {
            QFile::remove(entry.filePath());
        }
    }
}

} // namespace quorvane
