#include "Integration/PaidOnceFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
