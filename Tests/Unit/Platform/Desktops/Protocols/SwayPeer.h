#pragma once

#include "Support/PrivateHome.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <thread>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace quorvane {

using namespace Qt::StringLiterals;

inline QByteArray frame(const QByteArray &payload, quint32 type, std::optional<quint32> claimedLength = {})
{
    const quint32 length = claimedLength.value_or(static_cast<quint32>(payload.size()));
    QByteArray bytes("i3-ipc");
    bytes.append(reinterpret_cast<const char *>(&length), sizeof(length));
    bytes.append(reinterpret_cast<const char *>(&type), sizeof(type));
    return bytes + payload;
}

/// The other end of a real socket: for each request of a connection, answer(request) is sent, in pieces where it says
/// so, and the connection closed after an empty one.
class Peer
{
  public:
    using Answer = std::function<QByteArray(const QByteArray &request)>;
    enum class Sending { AtOnce, ByteByByte };

    explicit Peer(Answer answer, Sending sending = Sending::AtOnce)
        : m_answer(std::move(answer))
        , m_sending(sending)
        , m_listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray name = path().toUtf8();
        std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
        EXPECT_EQ(::bind(m_listener, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
        EXPECT_EQ(::listen(m_listener, 5), 0);
        m_thread = std::jthread([this](const std::stop_token &stop) { serve(stop); });
    }
    ~Peer()
    {
        m_thread = {};
        ::close(m_listener);
    }
    Peer(const Peer &) = delete;
    Peer &operator=(const Peer &) = delete;
    Peer(Peer &&) = delete;
    Peer &operator=(Peer &&) = delete;

    [[nodiscard]] QString path() const { return m_folder.filePath(u"sway.sock"_s); }

  private:
    static bool isReadable(int descriptor, const std::stop_token &stop)
    {
        pollfd waited{descriptor, POLLIN, 0};
        while (!stop.stop_requested()) {
            if (::poll(&waited, 1, 10) > 0) {
                return true;
            }
        }
        return false;
    }

    void serve(const std::stop_token &stop)
    {
        while (isReadable(m_listener, stop)) {
            const int connection = ::accept(m_listener, nullptr, nullptr);
            while (isReadable(connection, stop)) {
                QByteArray request(64 * 1024, '\0');
                const ssize_t count = ::recv(connection, request.data(), static_cast<std::size_t>(request.size()), 0);
                if (count <= 0) {
                    break;
                }
                request.truncate(count);
                const QByteArray answer = m_answer(request);
                if (answer.isNull()) { // Silence.
                    continue;
                }
                const int piece = m_sending == Sending::AtOnce ? static_cast<int>(answer.size()) : 1;
                for (qsizetype at = 0; at < answer.size(); at += piece) {
                    (void)::send(connection, answer.constData() + at, static_cast<std::size_t>(piece), MSG_NOSIGNAL);
                }
                if (answer.isEmpty() || answer.endsWith("<close>")) {
                    break;
                }
            }
            ::close(connection);
        }
    }

    Answer m_answer;
    Sending m_sending;
    QTemporaryDir m_folder;
    int m_listener;
    std::jthread m_thread;
};

} // namespace quorvane
