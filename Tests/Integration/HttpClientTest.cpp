// Our HTTP client against a server of our own on loopback that behaves badly in every way it knows.

#include "Platform/Network/HttpClient.h"
#include "Platform/Threads/TaskScope.h"
#include "Support/TestCertificates.h"
#include "Support/TrustedAuthority.h"
#include "Support/WaitFor.h"
#include "demo-service/DemoService.h"

#include <QRandomGenerator>
#include <QSslCertificate>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Kind = Misbehaviour::Kind;

struct Outcome
{
    QByteArray answer;
    QString failure;
};

QCoro::Task<> posting(HttpClient *client, HttpClient::Request request, Outcome *outcome)
{
    try {
        outcome->answer = co_await client->post(std::move(request));
    } catch (const TransportError &error) {
        outcome->failure = error.words();
    }
}

Outcome post(HttpClient &client, HttpClient::Request request)
{
    Outcome outcome;
    TaskScope scope;
    scope.start(posting(&client, std::move(request), &outcome));
    EXPECT_TRUE(waitFor([&scope] { return scope.running() == 0; }));
    return outcome;
}

HttpClient::Request request(const DemoService &service, const QString &path = u"/v1/images/generations"_s)
{
    HttpClient::Request result;
    result.url = QUrl(service.baseAddress().toString() + path);
    result.contentType = "application/json";
    result.secret = {"Authorization", "Bearer SECRET"};
    result.body =
        R"({"model":"grok-imagine-image","prompt":"p","response_format":"b64_json","n":1,"aspect_ratio":"16:9"})";
    result.silenceLimit = std::chrono::milliseconds(700);
    return result;
}

void paintSmall(DemoService &service)
{
    service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
        QImage image(64, 36, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        return image;
    });
}

} // namespace

class HttpClientTest : public testing::Test
{
  protected:
    HttpClientTest() { paintSmall(service); }

    Outcome postWith(const Misbehaviour &misbehaviour)
    {
        service.setMisbehaviour(misbehaviour);
        HttpClient client;
        return post(client, request(service));
    }

    DemoService service;
};

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
    // Noise does not compress, so that every way has megabytes to carry.
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

TEST_F(HttpClientTest, redirectsToTheSameHostAreFollowedWithTheKeyAsGet)
{
    for (const int status : {301, 302, 303}) {
        service.clearRequests();
        service.setResponder([status](const HttpRequest &arrived) -> std::optional<WireScript> {
            if (arrived.path == "/moved") {
                return HttpAnswer::json(200, "{}");
            }
            return HttpAnswer{status, {{"Location", "/moved"}}, {}};
        });
        HttpClient client;
        EXPECT_EQ(post(client, request(service)).answer, "{}");
        ASSERT_EQ(service.requests().size(), 2);
        EXPECT_EQ(service.requests().at(1).method, "GET");
        EXPECT_TRUE(service.requests().at(1).body.isEmpty());
        EXPECT_EQ(service.requests().at(1).header("Authorization"), "Bearer SECRET");
    }
}

TEST_F(HttpClientTest, aRedirectToAnotherHostLosesTheKey)
{
    DemoService other;
    other.setResponder(
        [](const HttpRequest & /*arrived*/) -> std::optional<WireScript> { return HttpAnswer::json(200, "{}"); });
    Misbehaviour away(Kind::Redirect);
    away.status = 302;
    away.text = other.baseAddress().toEncoded() + "/elsewhere";
    EXPECT_EQ(postWith(away).answer, "{}");
    ASSERT_EQ(other.requests().size(), 1);
    EXPECT_EQ(other.requests().first().header("Authorization"), QByteArray());
    const HttpRequest arrived = other.requests().first();
    for (const auto &[name, value] : arrived.headers) {
        EXPECT_FALSE(value.contains("SECRET")) << name.constData();
    }
}

TEST_F(HttpClientTest, aRedirectToAndFroDoesNotBringTheKeyBack)
{
    DemoService other;
    const QByteArray home = service.baseAddress().toEncoded() + "/back";
    other.setResponder([home](const HttpRequest & /*arrived*/) -> std::optional<WireScript> {
        return HttpAnswer{302, {{"Location", home}}, {}};
    });
    const QByteArray away = other.baseAddress().toEncoded() + "/away";
    service.setResponder([away](const HttpRequest &arrived) -> std::optional<WireScript> {
        if (arrived.path == "/back") {
            return HttpAnswer::json(200, "{}");
        }
        return HttpAnswer{302, {{"Location", away}}, {}};
    });
    HttpClient client;
    EXPECT_EQ(post(client, request(service)).answer, "{}");
    ASSERT_EQ(service.requests().size(), 2);
    EXPECT_EQ(service.requests().at(1).header("Authorization"), QByteArray());
}

TEST_F(HttpClientTest, redirectsToAddressesWithoutEncryptionAreRefused)
{
    for (const char *target :
         {"http://service.example/", "ftp://127.0.0.1/", "file:///etc/passwd", "http://192.168.1.1/"}) {
        for (const int status : {301, 302, 303, 307, 308}) {
            Misbehaviour away(Kind::Redirect);
            away.status = status;
            away.text = target;
            EXPECT_EQ(postWith(away).failure, u"The service redirected to an address without encryption."_s) << target;
        }
    }
}

TEST_F(HttpClientTest, redirectsThatNeverEndAreGivenUp)
{
    Misbehaviour loop(Kind::RedirectLoop);
    loop.status = 303;
    EXPECT_EQ(postWith(loop).failure, u"The service redirected too many times."_s);
    EXPECT_EQ(service.requests().size(), 11);
}

TEST_F(HttpClientTest, anAddressThatIsNotAllowedIsNotEvenTried)
{
    HttpClient client;
    HttpClient::Request bad = request(service);
    bad.url = QUrl(u"http://service.example/"_s);
    EXPECT_EQ(post(client, bad).failure, u"The address is neither https nor on this machine."_s);
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

class HttpClientTlsTest : public testing::Test
{
  protected:
    static Outcome postTo(const QSslConfiguration &tls, const QSslCertificate &trusted)
    {
        DemoService service({.address = QHostAddress::LocalHost, .port = 0, .tls = tls});
        paintSmall(service);
        const TrustedAuthority authority(trusted);
        HttpClient client;
        const Outcome outcome = post(client, request(service));
        if (!outcome.failure.isEmpty()) {
            // Not a byte of the request may have gone out.
            EXPECT_TRUE(service.requests().isEmpty());
        }
        return outcome;
    }

    TestCertificates certificates;
};

TEST_F(HttpClientTlsTest, aValidCertificateOfATrustedAuthorityIsAccepted)
{
    const Outcome outcome = postTo(certificates.valid(), certificates.authority());
    EXPECT_EQ(outcome.failure, QString());
    EXPECT_TRUE(outcome.answer.contains("b64_json"));
}

TEST_F(HttpClientTlsTest, eachKindOfBadCertificateIsRefusedInItsOwnWords)
{
    const QString expired = postTo(certificates.expired(), certificates.authority()).failure;
    const QString wrongHost = postTo(certificates.wrongHost(), certificates.authority()).failure;
    const QString unknown = postTo(certificates.unknownAuthority(), certificates.authority()).failure;
    EXPECT_EQ(expired, u"No secure connection to 127.0.0.1: The certificate has expired"_s);
    EXPECT_EQ(wrongHost, u"No secure connection to 127.0.0.1: The host name did not match any of the valid "
                         "hosts for this certificate"_s);
    EXPECT_TRUE(unknown.startsWith(u"No secure connection to 127.0.0.1: "_s)) << unknown.toStdString();
    EXPECT_NE(unknown, expired);
    EXPECT_NE(unknown, wrongHost);
}

} // namespace quorvane
