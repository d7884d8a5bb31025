#include "Storage/Deletion.h"

#include "Platform/Files/FolderLock.h"
#include "Platform/Logging.h"
#include "Storage/ImageStore.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr auto kFolderBegin = ".deleted."_L1;
constexpr qint64 kAbandonedAfterSeconds = 3600; // Where the file system cannot tell whether somebody still wants it.

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ImageStore)
};

/// The folder as something that can be locked; not open when it is no folder.
FileDescriptor openFolder(const QString &folder)
{
    const QByteArray name = QFile::encodeName(folder);
    return FileDescriptor(
        uninterrupted([&] { return ::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
}

bool lock(const FileDescriptor &folder)
{
    return folder.isOpen() && uninterrupted([&] { return ::flock(folder.get(), LOCK_EX | LOCK_NB); }) == 0;
}

bool isThere(const QString &path)
{
    return QFileInfo::exists(path) || QFileInfo(path).isSymLink();
}

/// Moves a file to a name that nobody has. errno tells why it could not.
bool moveTo(const QString &from, const QString &to)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    const auto move = [&](unsigned flags) {
        return uninterrupted(
                   [&] { return ::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), flags); }) == 0;
    };
    if (move(RENAME_NOREPLACE)) {
        return true;
    }
    if (errno != EINVAL) {
        return false;
    }
    // A file system that cannot promise it; then looking first has to do.
    if (isThere(to)) {
        errno = EEXIST;
        return false;
    }
    return move(0);
}

/// Of folders only an empty one is deleted.
bool isFullFolder(const QString &path)
{
    const QFileInfo entry(path);
    return !entry.isSymLink() && entry.isDir() &&
           !QDir(path).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

} // namespace

Deletion::Deletion(QString folder)
    : m_folder(std::move(folder))
    , m_lock(openFolder(m_folder))
{
    (void)lock(m_lock); // Where the file system has no locks, its age tells that somebody still wants it.
}

Deletion::~Deletion()
{
    QDir(m_folder).removeRecursively();
}

Deletion::Outcome Deletion::of(const QStringList &images)
{
    if (auto outcome = revocably(images)) {
        return std::move(*outcome);
    }
    // On a full disk the pictures' own room is what the side files need.
    Outcome outcome;
    for (const QString &image : images) {
        const Result<> step = ImageStore::deleteImage(image);
        outcome.result = outcome.result ? step : outcome.result;
    }
    return outcome;
}

std::optional<Deletion::Outcome> Deletion::revocably(const QStringList &images)
{
    const QString library = ImageStore::directory();
    const FolderLock alone(library);
    QByteArray folder = QFile::encodeName(library + '/'_L1 + kFolderBegin) + "XXXXXX";
    if (::mkdtemp(folder.data()) == nullptr) {
        return std::nullopt;
    }
    std::unique_ptr<Deletion> deletion(new Deletion(QFile::decodeName(folder)));
    const QStringList paths = withPartners(images);
    const std::set<QString> names = namesOf(paths);
    deletion->m_entries = entriesOf(names);
    Result<> moved = deletion->moveAside(paths);
    if (!dropEntriesOf(names)) {
        return std::nullopt;
    }
    return Outcome{std::move(deletion), std::move(moved)};
}

Result<> Deletion::moveAside(const QStringList &paths)
{
    Result<> outcome = kDone;
    for (const QString &path : paths) {
        // By number, since two pictures from different folders may have one name.
        const QString aside = m_folder + '/'_L1 + QString::number(m_moved.size());
        const bool isFull = isFullFolder(path);
        if (!isFull && moveTo(path, aside)) {
            m_moved.push_back({path, aside});
        } else if (const int reason = isFull ? ENOTEMPTY : errno; outcome && isThere(path)) {
            outcome = notDeleted(path, reason);
        }
    }
    qCInfo(logLibrary) << m_moved.size() << "pictures of" << paths.size() << "were set aside to be deleted";
    return outcome;
}

Result<> Deletion::undo()
{
    const FolderLock lock(ImageStore::directory());
    Result<> outcome = kDone;
    std::erase_if(m_moved, [&outcome](const Moved &picture) {
        if (moveTo(picture.aside, picture.path)) {
            return true;
        }
        const Failure failure{
            Tr::tr("%1 could not be brought back: %2").arg(imageName(picture.path), systemWords(errno))};
        outcome = outcome ? Result<>(failure) : outcome;
        return false;
    });
    PictureEntries entries = m_entries;
    for (const Moved &picture : m_moved) {
        // Whoever has its name now is another picture.
        const QString name = imageName(picture.path);
        entries.prompts.erase(name);
        entries.favorites.removeAll(name);
        std::erase_if(entries.links, [&](const auto &link) { return link.first == name || link.second == name; });
    }
    const Result<> restored = restoreEntries(entries);
    qCInfo(logLibrary) << "deleted pictures were brought back;" << m_moved.size() << "could not be";
    return outcome ? restored : outcome;
}

void Deletion::removeAbandoned()
{
    const QString library = ImageStore::directory();
    const FolderLock alone(library);
    const auto folders =
        QDir(library).entryInfoList({kFolderBegin + u"??????"_s}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    const QDateTime limit = QDateTime::currentDateTimeUtc().addSecs(-kAbandonedAfterSeconds);
    for (const QFileInfo &folder : folders) {
        const FileDescriptor descriptor = openFolder(folder.filePath());
        const bool isFree = lock(descriptor);
        const bool canBeLocked = isFree || errno == EWOULDBLOCK;
        if (isFree || (descriptor.isOpen() && !canBeLocked && folder.lastModified() < limit)) {
            QDir(folder.filePath()).removeRecursively();
        }
    }
}

} // namespace quorvane
