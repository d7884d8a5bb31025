#include "Platform/Files/WholeFile.h"

#include <QCoreApplication>

#include <algorithm>
#include <new>

#include <fcntl.h>
#include <sys/stat.h>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(WholeFile)
};

/// So much is read between two looks at the request to stop.
constexpr qint64 kPieceBytes = qint64(4) * 1024 * 1024;

Failure failureOf(int error)
{
    return {systemWords(error)};
}

bool isMissing(int error)
{
    return error == ENOENT || error == ENOTDIR;
}

/// Why something of this mode is not read; nothing for a regular file.
std::optional<Failure> whyNotRead(mode_t mode)
{
    if (S_ISREG(mode)) {
        return std::nullopt;
    }
    return S_ISDIR(mode) ? failureOf(EISDIR) : Failure{Tr::tr("Not a regular file")};
}

Result<std::optional<QByteArray>> contentOf(int descriptor, qint64 atMostBytes, const std::stop_token &stop)
{
    struct stat status = {};
    if (uninterrupted([&] { return ::fstat(descriptor, &status); }) != 0) {
        return failureOf(errno);
    }
    if (status.st_size > atMostBytes) {
        return failureOf(EFBIG);
    }
    QByteArray bytes;
    qint64 done = 0;
    // The size is a hint: others may write to the file meanwhile, and the end alone tells that it is whole.
    qint64 room = status.st_size + 1;
    while (true) {
        if (stop.stop_requested()) {
            return failureOf(ECANCELED);
        }
        bytes.resize(room);
        const auto wanted = static_cast<std::size_t>(std::min(room - done, kPieceBytes));
        const ssize_t count = uninterrupted([&] { return ::read(descriptor, bytes.data() + done, wanted); });
        if (count < 0) {
            return failureOf(errno);
        }
        done += count;
        if (done > atMostBytes) {
            return failureOf(EFBIG);
        }
        if (count == 0) {
            break;
        }
        if (done == room) {
            room = std::min(done + kPieceBytes, atMostBytes + 1);
        }
    }
    bytes.resize(done);
    return std::optional(std::move(bytes));
}

} // namespace

Result<std::optional<FileDescriptor>> openRegularFile(const QString &path)
{
    if (path.contains(QChar(u'\0'))) {
        return std::optional<FileDescriptor>();
    }
    const QByteArray name = QFile::encodeName(path);
    // Looked at before it is opened, because opening alone already wakes a pipe's writer and may move a device.
    struct stat status = {};
    if (uninterrupted([&] { return ::stat(name.constData(), &status); }) != 0) {
        return isMissing(errno) ? Result<std::optional<FileDescriptor>>(std::optional<FileDescriptor>())
                                : failureOf(errno);
    }
    if (const auto why = whyNotRead(status.st_mode)) {
        return *why;
    }
    FileDescriptor descriptor(
        uninterrupted([&] { return ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
    if (!descriptor.isOpen()) {
        return isMissing(errno) ? Result<std::optional<FileDescriptor>>(std::optional<FileDescriptor>())
                                : failureOf(errno);
    }
    // Another thing may have taken its place in between.
    if (uninterrupted([&] { return ::fstat(descriptor.get(), &status); }) != 0) {
        return failureOf(errno);
    }
    if (const auto why = whyNotRead(status.st_mode)) {
        return *why;
    }
    return std::optional(std::move(descriptor));
}

Result<> openRegularFile(const QString &path, qint64 atMostBytes, QFile *file)
{
    Result<std::optional<FileDescriptor>> opened = openRegularFile(path);
    if (!opened) {
        return opened.failure();
    }
    if (!opened->has_value()) {
        return failureOf(ENOENT);
    }
    if (!file->open((*opened)->get(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        return Failure{file->errorString()};
    }
    (void)(*opened)->release();
    if (file->size() > atMostBytes) {
        file->close();
        return failureOf(EFBIG);
    }
    return kDone;
}

Result<std::optional<QByteArray>> readWholeIfAny(const QString &path, qint64 atMostBytes, const std::stop_token &stop)
{
    const Result<std::optional<FileDescriptor>> opened = openRegularFile(path);
    if (!opened) {
        return opened.failure();
    }
    if (!opened->has_value()) {
        return std::optional<QByteArray>();
    }
    try {
        return contentOf((*opened)->get(), atMostBytes, stop);
    } catch (const std::bad_alloc &) {
        return failureOf(ENOMEM);
    }
}

Result<QByteArray> readWhole(const QString &path, qint64 atMostBytes, const std::stop_token &stop)
{
    Result<std::optional<QByteArray>> bytes = readWholeIfAny(path, atMostBytes, stop);
    if (!bytes) {
        return bytes.failure();
    }
    if (!bytes->has_value()) {
        return failureOf(ENOENT);
    }
    return std::move(**bytes);
}

} // namespace quorvane
