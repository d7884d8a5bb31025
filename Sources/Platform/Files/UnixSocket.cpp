#include "Platform/Files/UnixSocket.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

namespace quorvane {

Result<FileDescriptor> connectUnixSocket(const QString &path, QDeadlineTimer deadline)
{
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.isEmpty() || name.size() >= static_cast<qsizetype>(sizeof(address.sun_path))) {
        return Failure{systemWords(ENAMETOOLONG)};
    }
    std::memcpy(&address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    FileDescriptor descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    // A listener that accepts nobody makes connect() wait; this limit is the one that the kernel applies to it.
    const qint64 milliseconds = std::max<qint64>(1, deadline.remainingTime());
    const timeval limit{milliseconds / 1000, (milliseconds % 1000) * 1000};
    const timeval none{0, 0};
    if (descriptor.isOpen() && ::setsockopt(descriptor.get(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof(limit)) == 0 &&
        ::connect(descriptor.get(), reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0 &&
        ::setsockopt(descriptor.get(), SOL_SOCKET, SO_SNDTIMEO, &none, sizeof(none)) == 0) {
        return descriptor;
    }
    return Failure{systemWords(errno)};
}

} // namespace quorvane
