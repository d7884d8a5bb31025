#include "Platform/Desktops/Protocols/SwaySocket.h"

#include "Platform/Files/UnixSocket.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <poll.h>
#include <sys/socket.h>

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

Failure notUnderstood()
{
    return {Tr::tr("sway's answer cannot be understood")};
}

} // namespace

SwaySocket::SwaySocket(const QString &path, QDeadlineTimer deadline)
    : m_deadline(deadline)
{
    Result<FileDescriptor> connection = connectUnixSocket(path, deadline);
    if (connection) {
        m_connection = std::move(*connection);
    } else {
        m_failure = {Tr::tr("sway cannot be reached: %1").arg(connection.failure().words)};
    }
}

Result<QByteArray> SwaySocket::ask(Message message, const QByteArray &payload)
{
    const auto length = static_cast<quint32>(payload.size());
    const auto type = static_cast<quint32>(message);
    QByteArray request(kMagic.data(), kMagic.size());
    request.append(reinterpret_cast<const char *>(&length), sizeof(length));
    request.append(reinterpret_cast<const char *>(&type), sizeof(type));
    request.append(payload);

    if (!isConnected()) {
        return m_failure;
    }
    if (const Result<> sent = sendAll(request); !sent) {
        return fail(sent.failure());
    }
    std::array<char, kHeaderSize> header{};
    if (const Result<> received = receiveAll(header.data(), header.size()); !received) {
        return fail(received.failure());
    }
    quint32 answerLength = 0;
    quint32 answerType = 0;
    std::memcpy(&answerLength, header.data() + kMagic.size(), sizeof(answerLength));
    std::memcpy(&answerType, header.data() + kMagic.size() + sizeof(answerLength), sizeof(answerType));
    if (!std::equal(kMagic.begin(), kMagic.end(), header.begin()) || answerType != type ||
        answerLength > kPayloadLimit) {
        return fail(notUnderstood());
    }
    QByteArray answer(static_cast<qsizetype>(answerLength), Qt::Uninitialized);
    if (const Result<> received = receiveAll(answer.data(), answer.size()); !received) {
        return fail(received.failure());
    }
    return answer;
}

Result<> SwaySocket::wait(short events) const
{
    pollfd waited{m_connection.get(), events, 0};
    while (true) {
        const int count = ::poll(&waited, 1, static_cast<int>(m_deadline.remainingTime()));
        if (count > 0) {
            return kDone;
        }
        if (count == 0 || errno != EINTR) {
            return Failure{Tr::tr("sway does not answer")};
        }
    }
}

Result<> SwaySocket::sendAll(const QByteArray &bytes) const
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        if (Result<> ready = wait(POLLOUT); !ready) {
            return ready;
        }
        const ssize_t count = ::send(m_connection.get(), bytes.constData() + done,
                                     static_cast<std::size_t>(bytes.size() - done), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (count > 0) {
            done += count;
        } else if (errno != EAGAIN && errno != EINTR) {
            const QString reason = systemWords(errno);
            return Failure{Tr::tr("sway ended the connection: %1").arg(reason)};
        }
    }
    return kDone;
}

Result<> SwaySocket::receiveAll(char *bytes, qsizetype size) const
{
    qsizetype done = 0;
    while (done < size) {
        if (Result<> ready = wait(POLLIN); !ready) {
            return ready;
        }
        const ssize_t count =
            ::recv(m_connection.get(), bytes + done, static_cast<std::size_t>(size - done), MSG_DONTWAIT);
        if (count > 0) {
            done += count;
        } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
            return Failure{Tr::tr("sway ended the connection")};
        }
    }
    return kDone;
}

/// Ends the connection: an answer that comes late would be taken for the next one's.
Failure SwaySocket::fail(const Failure &failure)
{
    m_connection = FileDescriptor();
    m_failure = failure;
    return failure;
}

} // namespace quorvane
