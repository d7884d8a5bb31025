#include "Unit/Platform/Desktops/Protocols/SwayPeer.h"

#include "Platform/Desktops/Protocols/SwaySocket.h"

#include "Platform/Desktops/DesktopPictureSway.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"

#include <QElapsedTimer>
#include <QImage>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::milliseconds kShort(300);

} // namespace

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
