// A service counts a request when it arrives, whatever becomes of the connection afterwards. So each call sends one
// POST, in every way in which a connection or an answer can go wrong, for the few bytes of a prompt and the megabytes
// of a picture.

#include "Integration/CountingServer.h"
#include "Platform/Network/HttpClient.h"
#include "Platform/Threads/TaskScope.h"
#include "Providers/GeminiProvider.h"
#include "Providers/ProviderError.h"
#include "Support/TestCertificates.h"
#include "Support/TrustedAuthority.h"
#include "Support/WaitFor.h"
#include "Upscaling/GeminiUpscale.h"
#include "demo-service/DemoService.h"

#include <QNetworkProxy>

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stop_token>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Protocol = CountingServer::Protocol;
using Takes = Breakage::Takes;
using Gives = Breakage::Gives;
using Ends = Breakage::Ends;
using Headers = QList<std::pair<QByteArray, QByteArray>>;

enum class Call { Generation, Upscale };

const QByteArray kRefusal = R"({"error":{"message":"the service's own words"}})";
constexpr qsizetype kPictureBytes = qsizetype{2} * 1024 * 1024;

/// The authority of all servers here, made once.
TestCertificates &certificates()
{
    static TestCertificates made;
    return made;
}

const QSslConfiguration &serverTls()
{
    static const QSslConfiguration made = certificates().valid();
    return made;
}

QCoro::Task<> calling(HttpClient *http, Call call, QString *outcome, std::stop_token stop = {})
{
    try {
        if (call == Call::Generation) {
            const GeminiProvider provider(http);
            co_await provider.generate(u"a lake"_s, u"KEY"_s, u"gemini-2.5-flash-image"_s, true);
        } else {
            const QByteArray picture(kPictureBytes, 'x');
            co_await upscaleImage(http, picture, u"png"_s, u"KEY"_s, std::move(stop));
        }
        *outcome = u"a picture"_s;
    } catch (const ProviderError &error) {
        *outcome = error.errorDescription();
    }
}

std::string nameOf(Protocol protocol, Call call)
{
    static constexpr std::array kProtocols{"Http1", "Http1Tls", "Http2"};
    static constexpr std::array kCalls{"Generation", "Upscale"};
    return std::string(kProtocols.at(static_cast<std::size_t>(protocol))) + kCalls.at(static_cast<std::size_t>(call));
}

std::vector<Breakage> brokenConnections()
{
    std::vector<Breakage> result;
    for (const Ends ends : {Ends::Close, Ends::Reset}) {
        const std::string how = ends == Ends::Close ? "closed " : "reset ";
        result.push_back({.name = how + "after the head", .takes = Takes::Head, .ends = ends});
        result.push_back({.name = how + "within the body", .takes = Takes::SomeBody, .ends = ends});
        result.push_back({.name = how + "before the answer", .ends = ends});
        result.push_back({.name = how + "after 100", .gives = Gives::Continue, .ends = ends});
        result.push_back(
            {.name = how + "within the answer's head", .gives = Gives::HalfHead, .ends = ends, .body = kRefusal});
        result.push_back(
            {.name = how + "after the answer's head", .gives = Gives::Head, .ends = ends, .body = kRefusal});
        result.push_back({.name = how + "within the answer", .gives = Gives::HalfBody, .ends = ends, .body = kRefusal});
    }
    return result;
}

std::vector<Breakage> brokenStreams()
{
    std::vector<Breakage> result;
    for (const quint32 code : {0U, 2U, 11U}) {
        const std::string number = std::to_string(code);
        for (const Takes takes : {Takes::Head, Takes::SomeBody, Takes::Request}) {
            const std::string when = " at " + std::to_string(static_cast<int>(takes));
            result.push_back(
                {.name = "GOAWAY " + number + when, .takes = takes, .ends = Ends::GoAway, .errorCode = code});
            result.push_back({.name = "GOAWAY and close " + number + when,
                              .takes = takes,
                              .ends = Ends::GoAwayClose,
                              .errorCode = code});
        }
    }
    // Refused streams and those that want HTTP/1.1 are what clients like to send again.
    for (const quint32 code : {0U, 2U, 7U, 8U, 13U}) {
        for (const Takes takes : {Takes::Head, Takes::SomeBody, Takes::Request}) {
            const std::string when = " at " + std::to_string(static_cast<int>(takes));
            result.push_back({.name = "RST_STREAM " + std::to_string(code) + when,
                              .takes = takes,
                              .ends = Ends::ResetStream,
                              .errorCode = code});
        }
    }
    return result;
}

/// Whole answers after which a client might want to send its request again.
std::vector<Breakage> temptingAnswers()
{
    std::vector<Breakage> result;
    const auto add = [&result](const std::string &name, int status, const Headers &headers) {
        for (const Ends ends : {Ends::Not, Ends::Close}) {
            const std::string when = ends == Ends::Not ? ", connection kept" : ", connection closed";
            result.push_back({.name = name + when,
                              .gives = Gives::Answer,
                              .ends = ends,
                              .status = status,
                              .headers = headers,
                              .body = kRefusal});
        }
    };
    for (const int status : {401, 407}) {
        const QByteArray field = status == 401 ? "www-authenticate" : "proxy-authenticate";
        const QByteArray basic = R"(Basic realm="r")";
        const QByteArray digest = R"(Digest realm="r", nonce="n", qop="auth", algorithm=MD5)";
        for (const QByteArray &challenge :
             {basic, digest, QByteArray("NTLM"), QByteArray("Negotiate"), QByteArray("Bearer")}) {
            add(std::to_string(status) + ' ' + challenge.toStdString(), status, {{field, challenge}});
        }
        add(std::to_string(status) + " all", status,
            {{field, "Negotiate"}, {field, "NTLM"}, {field, digest}, {field, basic}});
        add(std::to_string(status) + " none", status, {});
    }
    for (const int status : {408, 417, 421, 425, 429, 503}) {
        add(std::to_string(status), status, {{"retry-after", "0"}});
    }
    return result;
}

std::vector<Breakage> redirects(int status)
{
    std::vector<Breakage> result;
    for (const QByteArray &body : {QByteArray(), kRefusal}) {
        for (const Ends ends : {Ends::Not, Ends::Close}) {
            const std::string name = std::to_string(status) + (body.isEmpty() ? " empty" : " with body") +
                                     (ends == Ends::Not ? ", connection kept" : ", connection closed");
            result.push_back({.name = name,
                              .gives = Gives::Answer,
                              .ends = ends,
                              .status = status,
                              .headers = {{"location", "/elsewhere"}},
                              .body = body});
        }
    }
    return result;
}

} // namespace

class PaidOnceTest : public testing::TestWithParam<std::tuple<Protocol, Call>>
{
  protected:
    ~PaidOnceTest() override { qunsetenv("QUORVANE_GEMINI_BASE_URL"); }

    static Protocol protocol() { return std::get<Protocol>(GetParam()); }

    /// What the user reads of kRefusal.
    static std::string refusalText()
    {
        const bool isUpscale = std::get<Call>(GetParam()) == Call::Upscale;
        return isUpscale ? "API error: Upscale failed: the service's own words" : "API error: the service's own words";
    }

    /// One call against a server that breaks so, to its end on both sides; how it ended for the user.
    QString callOf(const Breakage &breakage)
    {
        server = std::make_unique<CountingServer>(protocol(), breakage, serverTls());
        qputenv("QUORVANE_GEMINI_BASE_URL", server->address().toEncoded());
        QString outcome;
        {
            HttpClient client;
            TaskScope scope;
            scope.start(calling(&client, std::get<Call>(GetParam()), &outcome));
            if (breakage.ends == Ends::Not && breakage.gives != Gives::Answer) {
                EXPECT_TRUE(waitFor([this] { return server->hasBroken(); })) << breakage.name;
                client.cancelAll();
            }
            EXPECT_TRUE(waitFor([&scope] { return scope.running() == 0; })) << breakage.name;
        }
        // Whatever was still on its way has arrived once the connections have ended.
        EXPECT_TRUE(waitFor([this] { return server->open() == 0; })) << breakage.name;
        return outcome;
    }

    const TrustedAuthority authority{certificates().authority()};
    std::unique_ptr<CountingServer> server;
};

INSTANTIATE_TEST_SUITE_P(Every, PaidOnceTest,
                         testing::Combine(testing::Values(Protocol::Http1, Protocol::Http1Tls, Protocol::Http2),
                                          testing::Values(Call::Generation, Call::Upscale)),
                         [](const auto &info) {
                             return nameOf(std::get<Protocol>(info.param), std::get<Call>(info.param));
                         });

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

TEST(StoppedUpscale, endsOnTheWireAndLeavesTheOthersAlone)
{
    CountingServer server(Protocol::Http1, {.name = "silence", .gives = Gives::Nothing, .ends = Ends::Not}, {});
    qputenv("QUORVANE_GEMINI_BASE_URL", server.address().toEncoded());
    HttpClient client;
    std::stop_source stop;
    QString stopped;
    QString other;
    TaskScope scope;
    scope.start(calling(&client, Call::Upscale, &stopped, stop.get_token()));
    scope.start(calling(&client, Call::Upscale, &other));
    EXPECT_TRUE(waitFor([&server] { return server.posts() == 2; }));
    stop.request_stop();
    EXPECT_TRUE(waitFor([&scope] { return scope.running() == 1; }));
    EXPECT_EQ(stopped, u"Network error: The request was cancelled."_s);
    EXPECT_TRUE(waitFor([&server] { return server.open() == 1; }));
    EXPECT_EQ(other, QString());
    client.cancelAll();
    EXPECT_TRUE(waitFor([&scope] { return scope.running() == 0; }));
    qunsetenv("QUORVANE_GEMINI_BASE_URL");
}

TEST(PaidOnceBehindProxy, aProxyThatWantsALoginNeverSeesTheRequest)
{
    // Requests without encryption stay on this machine and go through no proxy; for the others it makes a tunnel.
    qputenv("QUORVANE_GEMINI_BASE_URL", "https://service.example");
    const Breakage breakage{.name = "407",
                            .gives = Gives::Answer,
                            .ends = Ends::Close,
                            .status = 407,
                            .headers = {{"proxy-authenticate", R"(Basic realm="r")"}},
                            .body = kRefusal};
    CountingServer proxy(Protocol::Http1, breakage, {});
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, u"127.0.0.1"_s, proxy.serverPort(), u"name"_s, u"password"_s));
    QString outcome;
    {
        HttpClient client;
        TaskScope scope;
        scope.start(calling(&client, Call::Generation, &outcome));
        EXPECT_TRUE(waitFor([&scope] { return scope.running() == 0; }));
    }
    QNetworkProxy::setApplicationProxy(QNetworkProxy::DefaultProxy);
    qunsetenv("QUORVANE_GEMINI_BASE_URL");
    EXPECT_TRUE(waitFor([&proxy] { return proxy.open() == 0; }));
    EXPECT_GT(proxy.connects(), 0);
    EXPECT_EQ(proxy.posts(), 0);
    EXPECT_TRUE(outcome.startsWith(u"Network error: "_s)) << outcome.toStdString();
    for (const QByteArray &head : proxy.heads()) {
        EXPECT_FALSE(head.contains("KEY")) << head.constData();
    }
}

} // namespace quorvane
