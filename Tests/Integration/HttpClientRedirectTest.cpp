#include "Integration/HttpClientFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
