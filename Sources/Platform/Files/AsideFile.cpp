#include "Platform/Files/AsideFile.h"

#include "Platform/Files/StorageNotices.h"
#include "Platform/Files/SystemCall.h"
#include "Platform/Logging.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(AsideFile)
};

constexpr int kMostAside = 5;

struct Entry
{
    explicit Entry(const QByteArray &path)
        : isThere(uninterrupted([&] { return ::lstat(path.constData(), &status); }) == 0)
    {
    }
    struct stat status = {};
    bool isThere;
};

bool isRegularFile(const QByteArray &path)
{
    struct stat status = {};
    return uninterrupted([&] { return ::stat(path.constData(), &status); }) == 0 && S_ISREG(status.st_mode);
}

QByteArray asideName(const QByteArray &path, int number)
{
    const qsizetype begin = path.lastIndexOf('/') + 1;
    return path.left(begin) + '.' + path.mid(begin) + ".unreadable-" + QByteArray::number(number);
}

} // namespace

AsideFile::AsideFile(QByteArray from, QByteArray to, Way way)
    : m_from(std::move(from))
    , m_to(std::move(to))
    , m_way(way)
{
}

Result<AsideFile> AsideFile::put(const QString &path, FileAccess access)
{
    QByteArray from = QFile::encodeName(path);
    const bool isRegular = isRegularFile(from);
    if (isRegular) {
        const Result<QString> target = writtenPath(path);
        if (!target) {
            return target.failure();
        }
        from = QFile::encodeName(*target);
    }
    const Entry source(from);
    const auto lockedAway = [&](const QByteArray &to, Way way) {
        const mode_t mode = source.status.st_mode & (S_IRUSR | S_IWUSR);
        if (isRegular && access == FileAccess::OwnerOnly) {
            (void)uninterrupted([&] { return ::chmod(to.constData(), mode); });
        }
        return AsideFile(from, to, way);
    };
    for (int number = 1;; ++number) {
        const QByteArray to = asideName(from, number);
        const Entry taken(to);
        if (taken.isThere) {
            const bool isSource =
                taken.status.st_dev == source.status.st_dev && taken.status.st_ino == source.status.st_ino;
            if (source.isThere && isSource) {
                return lockedAway(to, Way::WasThere);
            }
            if (number < kMostAside) {
                continue;
            }
            if (uninterrupted([&] { return ::unlink(to.constData()); }) != 0) {
                return Failure{systemWords(errno)};
            }
        }
        // A link, so that the file is there under its own name at every moment until the new one takes its place.
        if (isRegular && uninterrupted([&] { return ::link(from.constData(), to.constData()); }) == 0) {
            return lockedAway(to, Way::Linked);
        }
        if (uninterrupted([&] { return ::rename(from.constData(), to.constData()); }) == 0) {
            return lockedAway(to, Way::Moved);
        }
        return Failure{systemWords(errno)};
    }
}

QString AsideFile::path() const
{
    return QFile::decodeName(m_to);
}

void AsideFile::takeBack() const
{
    if (m_way == Way::Linked) {
        (void)uninterrupted([&] { return ::unlink(m_to.constData()); });
    } else if (m_way == Way::Moved) {
        (void)uninterrupted([&] { return ::rename(m_to.constData(), m_from.constData()); });
    }
}

Result<> replaceNotUnderstood(const QString &path, const QByteArray &bytes, FileAccess access)
{
    const QString name = QFileInfo(path).fileName();
    const Result<AsideFile> aside = AsideFile::put(path, access);
    if (!aside) {
        return Failure{Tr::tr("%1 cannot be understood, nor be put aside: %2").arg(name, aside.failure().words)};
    }
    Result<> written = writeFileAtomically(path, bytes, access);
    if (written) {
        qCInfo(logLibrary).noquote() << name << "could not be understood and was put aside";
        StorageNotices::add(Tr::tr("%1 could not be understood. It was put aside as %2, and a new one was begun.")
                                .arg(name, aside->path()));
    } else {
        aside->takeBack();
    }
    return written;
}

} // namespace quorvane
