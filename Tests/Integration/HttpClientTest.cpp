// Our HTTP client against a server of our own on loopback that behaves badly in every way it knows.

#include "Integration/HttpClientFixture.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(HttpClientTest, aWholeAnswerIsTheAnswerWhateverItsStatus)
{
    const QByteArray good = postWith({}).answer;
    EXPECT_TRUE(good.startsWith("{"));
    for (const int status : {200, 201, 400, 401, 403, 404, 405, 407, 409, 410, 418, 429, 500, 501, 503, 599}) {
        Misbehaviour bad(Kind::GoodBodyBadStatus);
        bad.status = status;
        const Outcome outcome = postWith(bad);
        EXPECT_EQ(outcome.failure, QString()) << status;
        EXPECT_EQ(outcome.answer.size(), good.size()) << status;
    }
}

TEST_F(HttpClientTest, framingThatHttpAllowsIsRead)
{
    const QByteArray good = postWith({}).answer;
    for (const Kind kind : {Kind::Chunked, Kind::Gzip}) {
        const Outcome outcome = postWith(kind);
        EXPECT_EQ(outcome.failure, QString());
        EXPECT_EQ(outcome.answer, good);
    }
    EXPECT_EQ(postWith(Kind::EmptyBody).answer, QByteArray());
    EXPECT_EQ(postWith(Kind::EmptyBody).failure, QString());
}

TEST_F(HttpClientTest, aLargeAnswerComesWholeInEveryFraming)
{
    // Noise does not compress, so that every way has megabytes to carry, and the service time to draw.
    silenceLimit = std::chrono::seconds(20);
    service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
        QImage image(1200, 900, QImage::Format_RGB32);
        QRandomGenerator random(1);
        random.fillRange(reinterpret_cast<quint32 *>(image.bits()), image.sizeInBytes() / 4);
        return image;
    });
    Misbehaviour broken(Kind::GoodBodyBadStatus);
    broken.status = 500;
    const QByteArray good = postWith({}).answer;
    EXPECT_GT(good.size(), 1 << 20);
    for (const Misbehaviour &way : {Misbehaviour(Kind::Chunked), Misbehaviour(Kind::Gzip), broken}) {
        const Outcome outcome = postWith(way);
        EXPECT_EQ(outcome.failure, QString());
        EXPECT_TRUE(outcome.answer == good)
            << static_cast<int>(way.kind) << ": " << outcome.answer.size() << " bytes of " << good.size();
    }
    // Only the words of a challenge are not waited for when they are as long as that.
    Misbehaviour challenge(Kind::GoodBodyBadStatus);
    challenge.status = 401;
    const Outcome outcome = postWith(challenge);
    EXPECT_EQ(outcome.failure, u"The service did not accept the API key."_s);
    EXPECT_EQ(outcome.answer, QByteArray());
}

TEST_F(HttpClientTest, aSlowDripGoesOnForAsLongAsBytesCome)
{
    const QByteArray good = postWith({}).answer;
    Misbehaviour drip(Kind::SlowDrip);
    drip.bytes = good.size() / 6;
    drip.pause = std::chrono::milliseconds(250);
    const Outcome outcome = postWith(drip);
    EXPECT_EQ(outcome.failure, QString());
    EXPECT_EQ(outcome.answer, good);
}

TEST_F(HttpClientTest, cancellingEndsWhatRunsAndWhatComes)
{
    service.setMisbehaviour(Kind::Silence);
    HttpClient client;
    Outcome outcome;
    TaskScope scope;
    scope.start(posting(&client, request(service), &outcome));
    ASSERT_TRUE(waitFor([this] { return !service.requests().isEmpty(); }));
    client.cancelAll();
    ASSERT_TRUE(waitFor([&scope] { return scope.running() == 0; }));
    EXPECT_EQ(outcome.failure, u"The request was cancelled."_s);
    EXPECT_EQ(post(client, request(service)).failure, u"The request was cancelled."_s);
}

TEST_F(HttpClientTest, noCallUsesAConnectionOfAnother)
{
    // The first call holds its connection while the second one's becomes idle, where the third one must not find it.
    HttpClient client;
    Outcome first;
    TaskScope scope;
    service.setResponder([](const HttpRequest &arrived) -> std::optional<WireScript> {
        if (arrived.path == "/first") {
            return WireScript().hang();
        }
        return HttpAnswer::json(200, "{}");
    });
    scope.start(posting(&client, request(service, u"/first"_s), &first));
    ASSERT_TRUE(waitFor([this] { return service.requests().size() == 1; }));
    for (int calls = 2; calls <= 3; ++calls) {
        Outcome outcome;
        TaskScope inner;
        inner.start(posting(&client, request(service), &outcome));
        ASSERT_TRUE(waitFor([&inner] { return inner.running() == 0; }));
        EXPECT_EQ(outcome.answer, "{}");
        EXPECT_EQ(service.connections(), calls);
    }
    client.cancelAll();
    ASSERT_TRUE(waitFor([&scope] { return scope.running() == 0; }));
}

TEST(HttpClientOverIpv6, works)
{
    DemoService service({.address = QHostAddress(QHostAddress::LocalHostIPv6), .port = 0, .tls = std::nullopt});
    if (!service.errorString().isEmpty()) {
        GTEST_SKIP() << "no IPv6 loopback here: " << service.errorString().toStdString();
    }
    paintSmall(service);
    HttpClient client;
    EXPECT_TRUE(post(client, request(service)).answer.contains("b64_json"));
}

} // namespace quorvane
