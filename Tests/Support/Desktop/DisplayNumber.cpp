#include "Support/Desktop/DisplayNumber.h"

#include <QFile>

#include <cstddef>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// A server that looks for a free number by itself counts from 0, and never gets as far as this.
constexpr int kFirst = 5000;
constexpr int kLast = 5999;

/// Takes a name that the kernel gives to one process at a time, and takes back when that ends, however it does.
bool takeName(int socket, const QByteArray &name)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    // The first byte stays 0: no file, only a name.
    std::memcpy(address.sun_path + 1, name.constData(), static_cast<std::size_t>(name.size()));
    const auto size =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + static_cast<std::size_t>(name.size()));
    return ::bind(socket, reinterpret_cast<const sockaddr *>(&address), size) == 0;
}

QString socketFile(const QByteArray &display)
{
    return u"/tmp/.X11-unix/X"_s + QString::fromLatin1(display.mid(1));
}

} // namespace

DisplayNumber::DisplayNumber()
    : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    for (int number = kFirst; number <= kLast; ++number) {
        const QByteArray display = ':' + QByteArray::number(number);
        if (takeName(m_socket, "quorvane test display " + display)) {
            QFile::remove(socketFile(display)); // Of a test that was killed with its server.
            m_display = display;
            return;
        }
    }
}

DisplayNumber::~DisplayNumber()
{
    if (!m_display.isEmpty()) {
        QFile::remove(socketFile(m_display));
    }
    if (m_socket >= 0) {
        ::close(m_socket);
    }
}

} // namespace quorvane
