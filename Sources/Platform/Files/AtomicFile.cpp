#include "Platform/Files/AtomicFile.h"

#include "Platform/Files/SystemCall.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <optional>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// The leading dot keeps a leftover out of every listing, the ending tells it apart from other programs' hidden files.
constexpr auto kTemporaryEnding = ".quorvane-tmp";
constexpr qint64 kAbandonedAfterSeconds = 3600; // Where the file system cannot tell whether somebody writes.

constexpr mode_t kPermissions = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr int kMostLinks = 40; // As many as the kernel follows.

bool writeAll(int descriptor, const QByteArray &bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t count = uninterrupted([&] {
            return ::write(descriptor, bytes.constData() + done, static_cast<std::size_t>(bytes.size() - done));
        });
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

QByteArray folderOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : path.left(std::max<qsizetype>(slash, 1));
}

Failure failureOf(int error)
{
    return {systemWords(error)};
}

/// Where the links end that path leads to. Fails when they lead nowhere.
Result<QByteArray> followed(QByteArray path)
{
    for (int links = 0; links < kMostLinks; ++links) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const ssize_t length = uninterrupted(
            [&] { return ::readlink(path.constData(), target.data(), static_cast<std::size_t>(target.size())); });
        if (length < 0) {
            return errno == EINVAL || errno == ENOENT ? Result<QByteArray>(path) : failureOf(errno);
        }
        target.truncate(length);
        path = target.startsWith('/') ? target : folderOf(path) + '/' + target;
    }
    return failureOf(ELOOP);
}

/// A new file that begins with such a name, open, and locked as a sign that it is being written; not open, with errno
/// set, when there can be none.
FileDescriptor lockedTemporary(const QByteArray &begin, QByteArray *name)
{
    while (true) {
        // mkostemps creates with mode 0600, so a key is never readable by others, not even for a moment.
        FileDescriptor file(uninterrupted([&] {
            *name = begin + ".XXXXXX" + kTemporaryEnding;
            return ::mkostemps(name->data(), static_cast<int>(qstrlen(kTemporaryEnding)), O_CLOEXEC);
        }));
        if (!file.isOpen()) {
            return file;
        }
        const bool isTaken =
            uninterrupted([&] { return ::flock(file.get(), LOCK_EX | LOCK_NB); }) != 0 && errno == EWOULDBLOCK;
        struct stat status = {};
        const bool isGone = ::fstat(file.get(), &status) == 0 && status.st_nlink == 0;
        if (!isTaken && !isGone) {
            return file;
        }
        // Somebody who looks for abandoned files found it before the lock did.
    }
}

/// The permissions that the new file gets, and its owner where the old one had another.
void takeOver(const std::optional<struct stat> &old, int descriptor, FileAccess access)
{
    constexpr mode_t kNew = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    if (old && (old->st_uid != ::geteuid() || old->st_gid != ::getegid())) {
        (void)::fchown(descriptor, old->st_uid, old->st_gid); // Not everybody may; nothing is lost by it.
    }
    // A file that its owner could not read would count as empty at once.
    const mode_t usual = old ? (old->st_mode & kPermissions) | S_IRUSR : kNew & ~currentUmask();
    // Where the file system keeps no permissions the file has those that it has, and is there all the same.
    (void)uninterrupted(
        [&] { return ::fchmod(descriptor, access == FileAccess::OwnerOnly ? S_IRUSR | S_IWUSR : usual); });
}

void syncFolder(const QByteArray &folder)
{
    const FileDescriptor descriptor(
        uninterrupted([&] { return ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (descriptor.isOpen()) {
        (void)uninterrupted([&] { return ::fsync(descriptor.get()); });
    }
}

} // namespace

Result<QString> writtenPath(const QString &path)
{
    if (path.isEmpty()) {
        return failureOf(ENOENT);
    }
    const Result<QByteArray> target = followed(QFile::encodeName(path));
    return target ? Result<QString>(QFile::decodeName(*target)) : target.failure();
}

Result<> writeFileAtomically(const QString &path, const QByteArray &bytes, FileAccess access)
{
    if (path.isEmpty() || path.contains(QChar(u'\0'))) {
        return failureOf(EINVAL);
    }
    const Result<QByteArray> end = followed(QFile::encodeName(path));
    if (!end) {
        return end.failure();
    }
    const QByteArray &target = *end;
    std::optional<struct stat> old = std::make_optional<struct stat>();
    if (uninterrupted([&] { return ::lstat(target.constData(), &*old); }) != 0) {
        old.reset();
    } else if (!S_ISREG(old->st_mode)) {
        return failureOf(S_ISDIR(old->st_mode) ? EISDIR : EEXIST);
    }

    const QByteArray folder = folderOf(target);
    QByteArray temporary;
    const FileDescriptor descriptor =
        lockedTemporary(folder + "/." + target.mid(target.lastIndexOf('/') + 1).left(200), &temporary);
    if (!descriptor.isOpen()) {
        return failureOf(errno);
    }
    errno = EIO; // What a write of nothing at all comes to, which sets none.
    bool ok = writeAll(descriptor.get(), bytes);
    if (ok) {
        takeOver(old, descriptor.get(), access);
    }
    // After fsync everything is on the disk, so closing has nothing to tell.
    ok = ok && uninterrupted([&] { return ::fsync(descriptor.get()); }) == 0;
    ok = ok && uninterrupted([&] { return ::rename(temporary.constData(), target.constData()); }) == 0;
    if (!ok) {
        const int reason = errno;
        (void)uninterrupted([&] { return ::unlink(temporary.constData()); });
        return failureOf(reason);
    }
    syncFolder(folder);
    return kDone;
}

void removeAbandonedTemporaries(const QString &folder)
{
    const auto entries = QDir(folder).entryInfoList({u".*"_s + QLatin1String(kTemporaryEnding)},
                                                    QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    const QDateTime limit = QDateTime::currentDateTimeUtc().addSecs(-kAbandonedAfterSeconds);
    for (const QFileInfo &entry : entries) {
        const QByteArray name = QFile::encodeName(entry.filePath());
        const FileDescriptor file(
            uninterrupted([&] { return ::open(name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC); }));
        const bool isLocked =
            file.isOpen() && uninterrupted([&] { return ::flock(file.get(), LOCK_EX | LOCK_NB); }) == 0;
        const bool isBeingWritten = file.isOpen() && !isLocked && errno == EWOULDBLOCK;
        if (isLocked || (!isBeingWritten && entry.lastModified() < limit)) {
            (void)uninterrupted([&] { return ::unlink(name.constData()); });
        }
    }
}

void removeAbandonedTemporariesOf(const QString &path)
{
    const QString folder = QFileInfo(path).path();
    removeAbandonedTemporaries(folder);
    const Result<QString> written = writtenPath(path);
    if (written && QFileInfo(*written).path() != folder) {
        removeAbandonedTemporaries(QFileInfo(*written).path());
    }
}

} // namespace quorvane
