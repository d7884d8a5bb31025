#include "MisbehaviourFixture.h"

#include "Support/WaitFor.h"

#include <QElapsedTimer>

namespace quorvane {

namespace {

using End = RawClient::End;

QByteArray joinChunks(QByteArray body)
{
    QByteArray joined;
    while (true) {
        const qsizetype line = body.indexOf("\r\n");
        const qsizetype size = line < 0 ? -1 : body.left(line).toLongLong(nullptr, 16);
        if (size <= 0) {
            return size == 0 ? joined : QByteArray("<cut>");
        }
        joined += body.mid(line + 2, size);
        body.remove(0, line + 2 + size + 2);
    }
}

} // namespace

TEST_F(MisbehaviourTest, aSlowDripIsSlowAndWhole)
{
    Misbehaviour drip(Kind::SlowDrip);
    drip.bytes = 50;
    drip.pause = std::chrono::milliseconds(5);
    QElapsedTimer clock;
    RawClient &client = ask(drip);
    clock.start();
    const QByteArray answer = client.receiveAnswer();
    EXPECT_TRUE(hasGoodPicture(bodyOf(answer)));
    EXPECT_GE(clock.elapsed(), (answer.size() / 50 - 2) * 5);
}

TEST_F(MisbehaviourTest, silenceIsSilentAndKeepsTheConnection)
{
    const auto receivedWhile = [this](Kind kind, qsizetype first) {
        const int connections = m_service.connections();
        const qsizetype requests = m_service.requests().size();
        RawClient &client = ask(kind);
        client.receive(first);
        EXPECT_TRUE(waitFor([&] {
            return m_service.connections() > connections &&
                   (kind == Kind::SilenceOnAccept || m_service.requests().size() > requests);
        }));
        EXPECT_FALSE(goodAnswer().isEmpty());
        const QByteArray received = client.receiveNow();
        EXPECT_EQ(client.end(), End::Open);
        return received;
    };
    EXPECT_EQ(receivedWhile(Kind::SilenceOnAccept, 0), "");
    EXPECT_EQ(m_service.requests().size(), 1) << "the unread request is not recorded, the good one is";
    EXPECT_EQ(receivedWhile(Kind::Silence, 0), "");
    EXPECT_EQ(m_service.requests().size(), 3);
    EXPECT_TRUE(receivedWhile(Kind::SilenceAfterHeaders, 20).endsWith("\r\n\r\n"));
    const QByteArray half = receivedWhile(Kind::SilenceMidBody, 100);
    EXPECT_EQ(bodyOf(half).size(), headerOf(half, "Content-Length").toLongLong() / 2);
}

TEST_F(MisbehaviourTest, resetsComeInTheirPhase)
{
    EXPECT_EQ(ask(Kind::ResetOnAccept).receiveAll(), "");
    EXPECT_EQ(m_client->end(), End::Reset);

    // Half a request is enough for the second one.
    EXPECT_EQ(ask(Kind::ResetDuringRequest, openAIRequest().left(60)).receiveAll(), "");
    EXPECT_EQ(m_client->end(), End::Reset);
    EXPECT_TRUE(m_service.requests().isEmpty());

    EXPECT_EQ(ask(Kind::ResetAfterRequest).receiveAll(), "");
    EXPECT_EQ(m_client->end(), End::Reset);
    EXPECT_EQ(m_service.requests().size(), 1);

    EXPECT_TRUE(ask(Kind::ResetAfterHeaders).receiveAll().endsWith("\r\n\r\n"));
    EXPECT_EQ(m_client->end(), End::Reset);

    const QByteArray half = ask(Kind::ResetMidBody).receiveAll();
    EXPECT_EQ(bodyOf(half).size(), headerOf(half, "Content-Length").toLongLong() / 2);
    EXPECT_EQ(m_client->end(), End::Reset);
}

TEST_F(MisbehaviourTest, lengthsAreWrongBothWays)
{
    const QByteArray cut = ask(Kind::CutBody).receiveAll();
    EXPECT_EQ(bodyOf(cut).size(), headerOf(cut, "Content-Length").toLongLong() / 2);
    EXPECT_EQ(m_client->end(), End::Closed);
    const QByteArray tooLarge = ask(Kind::LengthTooLarge).receiveAll();
    EXPECT_EQ(bodyOf(tooLarge).size() + 1000, headerOf(tooLarge, "Content-Length").toLongLong());
    EXPECT_TRUE(hasGoodPicture(bodyOf(tooLarge)));
    const QByteArray tooSmall = ask(Kind::LengthTooSmall).receiveAll();
    EXPECT_EQ(bodyOf(tooSmall).size() / 2, headerOf(tooSmall, "Content-Length").toLongLong());
    EXPECT_TRUE(hasGoodPicture(bodyOf(tooSmall)));
}

TEST_F(MisbehaviourTest, chunksAreWholeOrCut)
{
    Misbehaviour chunked(Kind::Chunked);
    chunked.bytes = 100;
    RawClient &client = ask(chunked);
    QByteArray answer;
    while (!answer.endsWith("\r\n0\r\n\r\n") && client.end() == End::Open) {
        answer = client.receive(answer.size() + 1);
    }
    EXPECT_EQ(headerOf(answer, "Transfer-Encoding"), "chunked");
    EXPECT_TRUE(hasGoodPicture(joinChunks(bodyOf(answer))));
    EXPECT_EQ(joinChunks(bodyOf(ask(Kind::ChunkedCut).receiveAll())), "<cut>");
    EXPECT_EQ(m_client->end(), End::Closed);
}

TEST_F(MisbehaviourTest, endlessAnswersGoOnAndOn)
{
    EXPECT_GE(ask(Kind::EndlessBody).receive(30'000'000).size(), 30'000'000);
    const QByteArray headers = ask(Kind::EndlessHeaders).receive(10'000'000);
    EXPECT_GE(headers.size(), 10'000'000);
    EXPECT_FALSE(headers.contains("\r\n\r\n"));
}

TEST_F(MisbehaviourTest, garbageIsNoHttp)
{
    const QByteArray garbage = ask(Kind::Garbage).receiveAll();
    EXPECT_FALSE(garbage.isEmpty() || garbage.startsWith("HTTP"));
    EXPECT_EQ(m_client->end(), End::Closed);
}

TEST_F(MisbehaviourTest, redirectsLeadElsewhereOrInACircle)
{
    Misbehaviour elsewhere(Kind::Redirect);
    elsewhere.status = 302;
    elsewhere.text = "http://127.0.0.1:1/away";
    const QByteArray away = ask(elsewhere).receiveAnswer();
    EXPECT_TRUE(away.startsWith("HTTP/1.1 302 "));
    EXPECT_EQ(headerOf(away, "Location"), "http://127.0.0.1:1/away");
    EXPECT_EQ(headerOf(ask(Kind::RedirectLoop).receiveAnswer(), "Location"), "/v1/images/generations");
}

} // namespace quorvane
