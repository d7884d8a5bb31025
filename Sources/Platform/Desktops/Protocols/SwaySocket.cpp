#include "Platform/Desktops/Protocols/SwaySocket.h"

#include "Platform/Files/UnixSocket.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(SwaySocket)
};

constexpr std::array<char, 6> kMagic{'i', '3', '-', 'i', 'p', 'c'};
constexpr qsizetype kHeaderSize = kMagic.size() + 2 * sizeof(quint32);
/// A description of twenty outputs with all their modes has about 100 KiB.
constexpr quint32 kPayloadLimit = 4 * 1024 * 1024;

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

} // namespace

SwaySocket::SwaySocket(const QString &path, QDeadlineTimer deadline)
    : m_deadline(deadline)
    , m_descriptor(connectUnixSocket(path, deadline))
{
    if (m_descriptor < 0) {
        const QString reason = systemError();
        fail(Tr::tr("sway cannot be reached: %1").arg(reason));
    }
}

SwaySocket::~SwaySocket()
{
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
    }
}

std::optional<QByteArray> SwaySocket::ask(Message message, const QByteArray &payload)
{
    const auto length = static_cast<quint32>(payload.size());
    const auto type = static_cast<quint32>(message);
    QByteArray request(kMagic.data(), kMagic.size());
    request.append(reinterpret_cast<const char *>(&length), sizeof(length));
    request.append(reinterpret_cast<const char *>(&type), sizeof(type));
    request.append(payload);

    std::array<char, kHeaderSize> header{};
    if (!isConnected() || !sendAll(request) || !receiveAll(header.data(), header.size())) {
        return std::nullopt;
    }
    quint32 answerLength = 0;
    quint32 answerType = 0;
    std::memcpy(&answerLength, header.data() + kMagic.size(), sizeof(answerLength));
    std::memcpy(&answerType, header.data() + kMagic.size() + sizeof(answerLength), sizeof(answerType));
    if (!std::equal(kMagic.begin(), kMagic.end(), header.begin()) || answerType != type ||
        answerLength > kPayloadLimit) {
        fail(Tr::tr("sway's answer cannot be understood"));
        return std::nullopt;
    }
    QByteArray answer(static_cast<qsizetype>(answerLength), Qt::Uninitialized);
    if (!receiveAll(answer.data(), answer.size())) {
        return std::nullopt;
    }
    return answer;
}

bool SwaySocket::wait(short events)
{
    pollfd waited{m_descriptor, events, 0};
    while (true) {
        const int count = ::poll(&waited, 1, static_cast<int>(m_deadline.remainingTime()));
        if (count > 0) {
            return true;
        }
        if (count == 0 || errno != EINTR) {
            fail(Tr::tr("sway does not answer"));
            return false;
        }
    }
}

bool SwaySocket::sendAll(const QByteArray &bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        if (!wait(POLLOUT)) {
            return false;
        }
        const ssize_t count = ::send(m_descriptor, bytes.constData() + done,
                                     static_cast<std::size_t>(bytes.size() - done), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (count > 0) {
            done += count;
        } else if (errno != EAGAIN && errno != EINTR) {
            const QString reason = systemError();
            fail(Tr::tr("sway ended the connection: %1").arg(reason));
            return false;
        }
    }
    return true;
}

bool SwaySocket::receiveAll(char *bytes, qsizetype size)
{
    qsizetype done = 0;
    while (done < size) {
        if (!wait(POLLIN)) {
            return false;
        }
        const ssize_t count = ::recv(m_descriptor, bytes + done, static_cast<std::size_t>(size - done), MSG_DONTWAIT);
        if (count > 0) {
            done += count;
        } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
            fail(Tr::tr("sway ended the connection"));
            return false;
        }
    }
    return true;
}

void SwaySocket::fail(const QString &error)
{
    m_error = error;
    if (m_descriptor >= 0) {
        ::close(m_descriptor);
        m_descriptor = -1;
    }
}

} // namespace quorvane
