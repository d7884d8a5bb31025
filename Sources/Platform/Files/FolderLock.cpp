#include "Platform/Files/FolderLock.h"

#include <QCoreApplication>
#include <QFile>
#include <QThread>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <set>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace quorvane {

namespace {

constexpr auto kLongestWait = std::chrono::seconds(2);

/// The folders whose lock was waited for in vain: nobody waits again before it was free once, or every change of many
/// would take two seconds.
class VainWaits
{
  public:
    bool contains(const QByteArray &path)
    {
        const std::scoped_lock lock(m_mutex);
        return m_paths.contains(path);
    }
    void note(const QByteArray &path, bool wasVain)
    {
        const std::scoped_lock lock(m_mutex);
        wasVain ? void(m_paths.insert(path)) : void(m_paths.erase(path));
    }

  private:
    std::mutex m_mutex;
    std::set<QByteArray> m_paths;
};

VainWaits vainWaits;

/// The lock's file, open for us alone; not open when it is somebody else's.
FileDescriptor lockFile(const QByteArray &path)
{
    constexpr int kFlags = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    FileDescriptor file(uninterrupted([&] { return ::open(path.constData(), kFlags); }));
    if (!file.isOpen() && errno == ENOENT) {
        file = FileDescriptor(uninterrupted([&] { return ::open(path.constData(), kFlags | O_CREAT, 0600); }));
    }
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return FileDescriptor();
    }
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        (void)::fchmod(file.get(), S_IRUSR | S_IWUSR);
    }
    return file;
}

bool lock(int descriptor, int flags)
{
    return uninterrupted([&] { return ::flock(descriptor, LOCK_EX | flags); }) == 0;
}

/// What the thread that waits in the kernel and the one that waits for it at most so long have in common.
struct Wait
{
    FileDescriptor file;
    std::mutex mutex;
    std::condition_variable ended;
    bool isEnded = false;
    bool isHeld = false;
};

/// The file once it is locked; not open when that took too long. flock has no limit of its own, and asking again and
/// again would lose against those who stand in the kernel's queue.
FileDescriptor lockedInTime(FileDescriptor file)
{
    const auto wait = std::make_shared<Wait>();
    wait->file = std::move(file);
    try {
        std::thread([wait] {
            const bool isHeld = lock(wait->file.get(), 0);
            const std::scoped_lock guard(wait->mutex);
            wait->isHeld = isHeld;
            wait->isEnded = true;
            wait->ended.notify_one();
        }).detach();
    } catch (const std::system_error &) {
        return FileDescriptor(); // No further thread to be had.
    }
    std::unique_lock guard(wait->mutex);
    wait->ended.wait_for(guard, kLongestWait, [&] { return wait->isEnded; });
    // A lock that comes too late goes with the thread that waited for it.
    return wait->isHeld ? std::move(wait->file) : FileDescriptor();
}

bool isThreadOfWindows()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return application != nullptr && application->inherits("QGuiApplication") &&
           QThread::currentThread() == application->thread();
}

} // namespace

FolderLock::FolderLock(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder) + "/.lock";
    FileDescriptor file = lockFile(path);
    if (!file.isOpen()) {
        return;
    }
    if (lock(file.get(), LOCK_NB)) {
        m_descriptor = std::move(file);
    } else if (errno == EWOULDBLOCK && !isThreadOfWindows() && !vainWaits.contains(path)) {
        m_descriptor = lockedInTime(std::move(file));
    } else {
        return;
    }
    vainWaits.note(path, !isHeld());
}

} // namespace quorvane
