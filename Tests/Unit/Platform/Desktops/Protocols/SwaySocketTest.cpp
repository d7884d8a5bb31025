#include "Unit/Platform/Desktops/Protocols/SwayPeer.h"

#include "Platform/Desktops/Protocols/SwaySocket.h"

#include "Support/Results.h"

namespace quorvane {

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

} // namespace quorvane
