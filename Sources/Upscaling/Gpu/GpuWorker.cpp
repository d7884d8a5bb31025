#include "Upscaling/Gpu/GpuWorker.h"

#include "Upscaling/Image/TileGrid.h"

#include <QDeadlineTimer>
#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

// The process's standard input and output are one socket instead of two pipes: writing to a process that is gone then
// is an error and no signal, and another thread can end a transfer by shutting the socket down.

namespace quorvane {

namespace {

constexpr int kSecondsForDying = 2;

/// Starts program with socket as its standard input and output and with no other open file; -1 when it cannot.
pid_t start(const QString &program, const QStringList &arguments, int socket)
{
    std::vector<QByteArray> words{QFile::encodeName(program)};
    for (const QString &argument : arguments) {
        words.push_back(QFile::encodeName(argument));
    }
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (QByteArray &word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, socket, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, socket, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    pid_t process = -1;
    if (posix_spawn(&process, words.front().constData(), &files, nullptr, pointers.data(), environ) != 0) {
        process = -1;
    }
    posix_spawn_file_actions_destroy(&files);
    return process;
}

/// Waits for the killed process. A driver may keep it in the kernel for as long as it likes, hence the limit: what
/// comes later is collected when this program ends.
void collect(pid_t process)
{
    const auto handle = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    pollfd gone{handle, POLLIN, 0};
    poll(&gone, 1, kSecondsForDying * 1000);
    waitpid(process, nullptr, WNOHANG);
    close(handle);
}

/// Moves size bytes with call, which sends or receives as many as it can without waiting. Fails at the other side's end
/// and after the deadline, too.
template <typename Call>
Result<> transfer(int socket, short event, std::size_t size, QDeadlineTimer deadline, Call call)
{
    std::size_t done = 0;
    while (done < size) {
        pollfd ready{socket, event, 0};
        const int found = poll(&ready, 1, static_cast<int>(deadline.remainingTime()));
        if (found == 0) {
            return Failure{u"it was not done in time"_s};
        }
        const ssize_t count = found < 0 ? -1 : call(done);
        if (count == 0) {
            return Failure{u"it ended"_s};
        }
        if (count < 0 && errno != EINTR && errno != EAGAIN) {
            return Failure{qt_error_string(errno)};
        }
        done += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    return kDone;
}

} // namespace

std::size_t GpuWorker::Header::tileSize() const
{
    const auto isSide = [](std::int32_t side) { return side > 0 && side <= TileGrid::kMostSeenEdge; };
    return isSide(width) && isSide(height) ? std::size_t(3) * std::size_t(width) * std::size_t(height) : 0;
}

std::size_t GpuWorker::Header::resultSize() const
{
    return tileSize() * TileGrid::kScale * TileGrid::kScale;
}

GpuWorker::GpuWorker(const QString &program, const QStringList &arguments)
{
    std::array<int, 2> ends{-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        return;
    }
    m_socket = ends[0];
    m_process = start(program, arguments, ends[1]);
    close(ends[1]);
}

GpuWorker::~GpuWorker()
{
    if (m_process > 0) {
        kill(m_process, SIGKILL);
        collect(m_process);
    }
    if (m_socket >= 0) {
        close(m_socket);
    }
}

Result<> GpuWorker::run(std::span<const float> tile, QSize size, std::span<float> result,
                        std::chrono::milliseconds limit) const
{
    const Header header{size.width(), size.height()};
    Q_ASSERT(header.tileSize() > 0 && tile.size() == header.tileSize() && result.size() == header.resultSize());
    if (m_process < 0) {
        return Failure{u"it was not started"_s};
    }
    const QDeadlineTimer deadline(limit);
    const auto sending = [this](std::span<const std::byte> all) {
        return [this, all](std::size_t done) {
            return ::send(m_socket, all.data() + done, all.size() - done, MSG_DONTWAIT | MSG_NOSIGNAL);
        };
    };
    const std::span<const std::byte> described = std::as_bytes(std::span(&header, 1));
    const auto receive = [&](std::size_t done) {
        const auto bytes = std::as_writable_bytes(result).subspan(done);
        return ::recv(m_socket, bytes.data(), bytes.size(), MSG_DONTWAIT);
    };
    Result<> done = transfer(m_socket, POLLOUT, described.size(), deadline, sending(described));
    if (done) {
        done = transfer(m_socket, POLLOUT, tile.size_bytes(), deadline, sending(std::as_bytes(tile)));
    }
    if (done) {
        done = transfer(m_socket, POLLIN, result.size_bytes(), deadline, receive);
    }
    char extra = 0;
    if (done && (::recv(m_socket, &extra, 1, MSG_DONTWAIT) >= 0 || errno != EAGAIN)) {
        done = Failure{u"it gave more than a result"_s};
    }
    if (!done) {
        end();
    }
    return done;
}

void GpuWorker::end() const
{
    shutdown(m_socket, SHUT_RDWR);
}

} // namespace quorvane
