#include "Integration/PaidOnceFixture.h"

#include <QNetworkProxy>

using namespace Qt::StringLiterals;

namespace quorvane {

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
