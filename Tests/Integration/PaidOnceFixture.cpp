#include "Integration/PaidOnceFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

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

QCoro::Task<> calling(HttpClient *http, Call call, QString *outcome, std::stop_token stop)
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

std::string PaidOnceTest::refusalText()
{
    const bool isUpscale = std::get<Call>(GetParam()) == Call::Upscale;
    return isUpscale ? "API error: Upscale failed: the service's own words" : "API error: the service's own words";
}

QString PaidOnceTest::callOf(const Breakage &breakage)
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

} // namespace quorvane
