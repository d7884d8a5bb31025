#include "Platform/Desktops/Protocols/SwaySocket.h"

#include "Platform/Desktops/DesktopPictureSway.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"

#include <QElapsedTimer>
#include <QImage>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <thread>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QByteArray frame(const QByteArray &payload, quint32 type, std::optional<quint32> claimedLength = {})
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

constexpr std::chrono::milliseconds kShort(300);

} // namespace

TEST(SwaySocket, requestsAndAnswersAreFramed)
{
    QByteArray seen;
    const QByteArray large(3'000'000, 'x');
    Peer peer([&](const QByteArray &request) {
        seen = request;
        return request.endsWith("large") ? frame(large, 0) : frame("[]", 3);
    });
    SwaySocket socket(peer.path(), QDeadlineTimer(std::chrono::seconds(5)));
    EXPECT_TRUE(socket.isConnected());
    EXPECT_EQ(valueOf(socket.ask(SwaySocket::Message::GetOutputs)), "[]");
    EXPECT_EQ(seen, frame({}, 3));
    EXPECT_EQ(valueOf(socket.ask(SwaySocket::Message::RunCommand, "large")), large);
    EXPECT_EQ(seen, frame("large", 0));
}

TEST(SwaySocket, anAnswerInManyPiecesIsPutTogether)
{
    Peer peer([](const QByteArray &) { return frame("[1, 2, 3]", 3); }, Peer::Sending::ByteByByte);
    SwaySocket socket(peer.path(), QDeadlineTimer(std::chrono::seconds(5)));
    EXPECT_EQ(valueOf(socket.ask(SwaySocket::Message::GetOutputs)), "[1, 2, 3]");
}

TEST(SwaySocket, badPeersAreErrorsWithinTheDeadline)
{
    struct Case
    {
        const char *what;
        QByteArray answer;
        const char *error;
    };
    const Case cases[] = {
        {"silence", QByteArray(), "sway does not answer"},
        {"half a header", frame("[]", 3).left(9), "sway does not answer"},
        {"half an answer", frame("[]", 3, 100), "sway does not answer"},
        {"garbage", QByteArray(100, '\xff'), "sway's answer cannot be understood"},
        {"a giant length", frame("[]", 3, 0xffffffff), "sway's answer cannot be understood"},
        {"a length just above the limit", frame("[]", 3, 4 * 1024 * 1024 + 1), "sway's answer cannot be understood"},
        {"another type", frame("[]", 0x80000003), "sway's answer cannot be understood"},
        {"closing at once", QByteArray(""), "sway ended the connection"},
        {"closing half-way", frame("<close>", 3, 100), "sway ended the connection"},
    };
    for (const Case &each : cases) {
        Peer peer([&](const QByteArray &) { return each.answer; });
        QElapsedTimer clock;
        clock.start();
        SwaySocket socket(peer.path(), QDeadlineTimer(kShort));
        const QString error = QString::fromUtf8(each.error);
        EXPECT_EQ(wordsOf(socket.ask(SwaySocket::Message::GetOutputs)), error) << each.what;
        EXPECT_FALSE(socket.isConnected()) << each.what;
        EXPECT_EQ(wordsOf(socket.ask(SwaySocket::Message::GetOutputs)), error) << each.what;
        EXPECT_LT(clock.elapsed(), kShort.count() + 1000) << each.what;
    }
}

TEST(SwaySocket, whereNobodyListensIsAnError)
{
    const PrivateHome home;
    const QStringList paths{QString(), home.path() + u"/none"_s, home.path(), '/'_L1 + QString(300, 'a'_L1)};
    for (const QString &path : paths) {
        SwaySocket socket(path, QDeadlineTimer(kShort));
        EXPECT_FALSE(socket.isConnected()) << path.toStdString();
        const QString words = wordsOf(socket.ask(SwaySocket::Message::GetOutputs));
        EXPECT_TRUE(words.startsWith(u"sway cannot be reached: "_s)) << words.toStdString();
    }
}

TEST(SwaySocket, aListenerThatAcceptsNobodyIsGivenUp)
{
    QTemporaryDir folder;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = folder.filePath(u"s"_s).toUtf8();
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
    ASSERT_EQ(::listen(listener, 0), 0);
    const SwaySocket first(QString::fromUtf8(name), QDeadlineTimer(kShort)); // Fills the queue.
    EXPECT_TRUE(first.isConnected());
    QElapsedTimer clock;
    clock.start();
    const SwaySocket second(QString::fromUtf8(name), QDeadlineTimer(kShort));
    EXPECT_FALSE(second.isConnected());
    EXPECT_LT(clock.elapsed(), kShort.count() + 1000);
    ::close(listener);
}

TEST(SwaySocket, theScreensRefusalComesInSwaysOwnWordsAndStopsThere)
{
    const PrivateHome home;
    const QString picture = home.path() + u"/picture.png"_s;
    ASSERT_TRUE(QImage(8, 8, QImage::Format_RGB32).save(picture));
    QList<QByteArray> commands;
    Peer peer([&](const QByteArray &request) {
        if (request == frame({}, 3)) {
            const char *mode = R"("active": true, "current_mode": {"width": 8, "height": 8})";
            return frame(QByteArray("[{\"name\": \"A\", ") + mode + "}, {\"name\": \"B C\", " + mode +
                             "}, {\"name\": \"D\", " + mode + "}]",
                         3);
        }
        commands.append(request.mid(14));
        return commands.size() == 1 ? frame(R"([{"success": true}])", 0)
                                    : frame(R"([{"success": false, "error": "No such colour"}])", 0);
    });
    DesktopPictureSway sway(peer.path(), QString());
    EXPECT_EQ(sway.setPicture(picture, sway.screens()), Failure{u"No such colour"_s});
    const QByteArray end = " bg " + picture.toUtf8() + " fill";
    EXPECT_EQ(commands, (QList<QByteArray>{"output \"A\"" + end, "output \"B C\"" + end}));
}

} // namespace quorvane
