// A service counts a request when it arrives, whatever becomes of the connection afterwards. So each call sends one
// POST, in every way in which a connection or an answer can go wrong, for the few bytes of a prompt and the megabytes
// of a picture.

#include "Integration/PaidOnceFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_P(PaidOnceTest, aConnectionThatBreaksIsToldAndNotTriedAgain)
{
    for (const Breakage &breakage : brokenConnections()) {
        const QString outcome = callOf(breakage);
        EXPECT_EQ(server->posts(), 1) << breakage.name;
        EXPECT_TRUE(outcome.startsWith(u"Network error: "_s) && outcome.size() > 20)
            << breakage.name << ": " << outcome.toStdString();
    }
}

TEST_P(PaidOnceTest, aStreamThatBreaksIsToldAndNotTriedAgain)
{
    if (protocol() != Protocol::Http2) {
        GTEST_SKIP() << "only HTTP/2 has streams";
    }
    for (const Breakage &breakage : brokenStreams()) {
        const QString outcome = callOf(breakage);
        EXPECT_EQ(server->posts(), 1) << breakage.name;
        EXPECT_TRUE(outcome.startsWith(u"Network error: "_s) && outcome.size() > 20)
            << breakage.name << ": " << outcome.toStdString();
    }
}

TEST_P(PaidOnceTest, noAnswerMakesTheRequestGoOutAgainAndItsWordsAreRead)
{
    for (const Breakage &breakage : temptingAnswers()) {
        const std::string outcome = callOf(breakage).toStdString();
        const bool isKey = outcome == "Network error: The service did not accept the API key.";
        const bool isProxy = outcome == "Network error: The proxy asks for a name and a password.";
        // Over HTTP/2 a challenge comes without the words.
        EXPECT_TRUE(outcome == refusalText() || (protocol() == Protocol::Http2 && breakage.status == 401 && isKey) ||
                    (protocol() == Protocol::Http2 && breakage.status == 407 && isProxy))
            << breakage.name << ": " << outcome;
        EXPECT_EQ(server->posts(), 1) << breakage.name;
        EXPECT_EQ(server->gets(), 0) << breakage.name;
    }
}

TEST_P(PaidOnceTest, aRedirectIsFollowedAtMostWithGet)
{
    for (const int status : {301, 302, 303}) {
        for (const Breakage &breakage : redirects(status)) {
            // The empty object that the GET gets has no picture in it.
            EXPECT_TRUE(callOf(breakage).startsWith(u"Invalid response: No image in "_s)) << breakage.name;
            EXPECT_EQ(server->posts(), 1) << breakage.name;
            EXPECT_EQ(server->gets(), 1) << breakage.name;
        }
    }
}

TEST_P(PaidOnceTest, aRedirectThatWantsTheRequestAgainIsToldWithTheNewAddress)
{
    for (const int status : {307, 308}) {
        for (const Breakage &breakage : redirects(status)) {
            const QString outcome = callOf(breakage);
            EXPECT_EQ(outcome.toStdString(),
                      u"Network error: The service has moved to %1/elsewhere"_s.arg(server->address().toString())
                          .toStdString())
                << breakage.name;
            EXPECT_EQ(server->posts(), 1) << breakage.name;
            EXPECT_EQ(server->gets(), 0) << breakage.name;
        }
    }
}

TEST_P(PaidOnceTest, nothingWaitsForLeaveToSendTheBody)
{
    // A server that never says 100 gets the whole body all the same, because it is not asked.
    const QString outcome = callOf({.name = "silence", .ends = Ends::Not});
    EXPECT_EQ(outcome, u"Network error: The request was cancelled."_s);
    EXPECT_EQ(server->posts(), 1);
    EXPECT_GT(server->bodyBytes(), std::get<Call>(GetParam()) == Call::Upscale ? kPictureBytes : 0);
    for (const QByteArray &head : server->heads()) {
        EXPECT_FALSE(head.toLower().contains("expect:")) << head.constData();
        EXPECT_TRUE(head.toLower().contains("content-length: " + QByteArray::number(server->bodyBytes())));
        EXPECT_FALSE(head.toLower().contains("transfer-encoding")) << head.constData();
    }
    // Nor does one that says it and nothing more get the request again.
    callOf({.name = "100 and silence", .gives = Gives::Continue, .ends = Ends::Not});
    EXPECT_EQ(server->posts(), 1);
}

INSTANTIATE_TEST_SUITE_P(Every, PaidOnceTest,
                         testing::Combine(testing::Values(Protocol::Http1, Protocol::Http1Tls, Protocol::Http2),
                                          testing::Values(Call::Generation, Call::Upscale)),
                         [](const auto &info) {
                             return nameOf(std::get<Protocol>(info.param), std::get<Call>(info.param));
                         });

} // namespace quorvane
