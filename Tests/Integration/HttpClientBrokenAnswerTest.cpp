// Answers that end too early, too late or never, and none at all.

#include "Integration/HttpClientFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(HttpClientTest, silenceEndsAfterTheLimit)
{
    for (const Kind kind : {Kind::SilenceOnAccept, Kind::Silence, Kind::SilenceAfterHeaders, Kind::SilenceMidBody}) {
        EXPECT_EQ(postWith(kind).failure, u"The request timed out."_s) << static_cast<int>(kind);
    }
}

TEST_F(HttpClientTest, aConnectionThatBreaksIsAFailureInEveryPhase)
{
    for (const Kind kind :
         {Kind::ResetOnAccept, Kind::ResetDuringRequest, Kind::ResetAfterRequest, Kind::ResetAfterHeaders,
          Kind::ResetMidBody, Kind::CutBody, Kind::LengthTooLarge, Kind::Garbage}) {
        const Outcome outcome = postWith(kind);
        EXPECT_FALSE(outcome.failure.isEmpty()) << static_cast<int>(kind);
        EXPECT_TRUE(outcome.answer.isEmpty());
    }
}

TEST_F(HttpClientTest, chunksThatBreakOffAreNeverTakenForAWholeAnswer)
{
    // Qt does not always tell that the last chunk is missing; what it gives then is no whole JSON text.
    Misbehaviour cut(Kind::ChunkedCut);
    cut.bytes = 64;
    const QByteArray good = postWith({}).answer;
    const Outcome outcome = postWith(cut);
    EXPECT_TRUE(!outcome.failure.isEmpty() || outcome.answer.size() < good.size());
    EXPECT_TRUE(good.startsWith(outcome.answer));
}

TEST_F(HttpClientTest, aLengthThatIsTooSmallCutsTheAnswer)
{
    const QByteArray good = postWith({}).answer;
    const Outcome outcome = postWith(Kind::LengthTooSmall);
    EXPECT_EQ(outcome.failure, QString());
    EXPECT_TRUE(good.startsWith(outcome.answer.left(100)));
    EXPECT_LT(outcome.answer.size(), good.size());
}

TEST_F(HttpClientTest, whatHasNoEndIsRefusedAtTheLimit)
{
    constexpr qint64 kLimit = 4LL * 1024 * 1024;
    HttpClient client(kLimit);
    service.setMisbehaviour(Kind::EndlessBody);
    EXPECT_EQ(post(client, request(service)).failure, u"The answer is larger than 4 MiB."_s);
    Misbehaviour huge(Kind::HugeAnswer);
    huge.bytes = 2 * kLimit;
    service.setMisbehaviour(huge);
    EXPECT_EQ(post(client, request(service)).failure, u"The answer is larger than 4 MiB."_s);
}

TEST_F(HttpClientTest, aCompressedBombIsRefused)
{
    const Outcome outcome = postWith(Kind::GzipBomb);
    EXPECT_FALSE(outcome.failure.isEmpty());
    EXPECT_TRUE(outcome.answer.isEmpty());
}

TEST_F(HttpClientTest, headersWithoutEndAreRefused)
{
    EXPECT_FALSE(postWith(Kind::EndlessHeaders).failure.isEmpty());
}

TEST_F(HttpClientTest, nobodyListeningIsAFailureWithoutTheKeyInIt)
{
    HttpClient client;
    HttpClient::Request nobody = request(service);
    nobody.url = QUrl(u"http://127.0.0.1:1/"_s);
    const QString failure = post(client, nobody).failure;
    EXPECT_FALSE(failure.isEmpty());
    EXPECT_FALSE(failure.contains(u"SECRET"_s));
}

} // namespace quorvane
