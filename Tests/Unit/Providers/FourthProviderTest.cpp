// Another provider is one file and one name in the list. This one is nowhere but here.

#include "Platform/Threads/TaskScope.h"
#include "Providers/ImageServices.h"
#include "Providers/ProviderError.h"
#include "Support/WaitFor.h"
#include "demo-service/DemoService.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// A service that answers {"canvas":"BASE64"}.
class EaselProvider final : public ServiceProvider
{
  public:
    explicit EaselProvider(HttpClient *http)
        : ServiceProvider(service(), http)
    {
    }

    static ImageService service()
    {
        return {.id = u"easel"_s,
                .name = u"Easel"_s,
                .keyTitle = u"Easel (Atelier)"_s,
                .keyUse = u"Used by painters."_s,
                .takesNsfw = true,
                .models = {{{u"oil"_s, u"Oil"_s}, Makes4K::WhenAsked}, {{u"chalk"_s, u"Chalk"_s}}},
                .address = {"QUORVANE_EASEL_BASE_URL", "https://easel.example"},
                .path = u"/paint/%1"_s,
                .keyHeader = "X-Easel",
                .keyPrefix = "Key ",
                .silenceLimit = std::chrono::seconds(30),
                .silenceLimitIn4K = std::chrono::seconds(90),
                .body = [](const ImageOrder &order, bool in4K) -> QJsonObject {
                    return {{u"subject"_s, order.prompt}, {u"large"_s, in4K}};
                },
                .answer = {.pictureIn = [](const QJsonObject &answer) -> std::optional<PictureInAnswer> {
                    return PictureInAnswer{.base64 = answer.value("canvas"_L1), .extension = u"png"_s};
                }}};
    }
};

using WithEasel = ProviderList<GeminiProvider, GrokProvider, OpenAIProvider, EaselProvider>;

QCoro::Task<> generating(const ImageProvider *provider, EncodedImage *image, QString *failure)
{
    try {
        *image = co_await provider->generate(u"a lake"_s, u"SECRET"_s, u"oil"_s, true);
    } catch (const ProviderError &error) {
        *failure = error.errorDescription();
    }
}

} // namespace

TEST(FourthProvider, theListHasItWithEverythingThatIsKnownOfIt)
{
    HttpClient http;
    const auto providers = WithEasel::make(http);
    ASSERT_EQ(providers.size(), 4U);
    EXPECT_EQ(providers.back()->id(), u"easel"_s);
    EXPECT_EQ(providers.back()->name(), u"Easel"_s);
    EXPECT_EQ(providers.back()->keyTitle(), u"Easel (Atelier)"_s);
    EXPECT_EQ(providers.back()->keyUse(), u"Used by painters."_s);
    EXPECT_TRUE(providers.back()->takesNsfw());
    EXPECT_EQ(providers.back()->models(), (QList<ModelOption>{{u"oil"_s, u"Oil"_s}, {u"chalk"_s, u"Chalk"_s}}));
    const ImageService easel = WithEasel::services().last();
    EXPECT_TRUE(easel.makes4K(u"oil"_s));
    EXPECT_FALSE(easel.makes4K(u"chalk"_s));
    EXPECT_FALSE(easel.makes4K(u"unknown"_s));
    EXPECT_EQ(requestFor(easel, {u"p"_s, u"oil"_s, true}, u"K"_s).silenceLimit, std::chrono::seconds(90));
    EXPECT_EQ(requestFor(easel, {u"p"_s, u"oil"_s, false}, u"K"_s).silenceLimit, std::chrono::seconds(30));
    EXPECT_EQ(requestFor(easel, {u"p"_s, u"chalk"_s, true}, u"K"_s).silenceLimit, std::chrono::seconds(30));
}

TEST(FourthProvider, itAsksAndReadsAsItsFileSays)
{
    DemoService server;
    server.setResponder([](const HttpRequest & /*arrived*/) -> std::optional<WireScript> {
        return HttpAnswer::json(200, R"({"canvas":"TWFu"})");
    });
    qputenv("QUORVANE_EASEL_BASE_URL", server.baseAddress().toEncoded());
    HttpClient http;
    const auto providers = WithEasel::make(http);
    EncodedImage image;
    QString failure;
    TaskScope scope;
    scope.start(generating(providers.back().get(), &image, &failure));
    EXPECT_TRUE(waitFor([&scope] { return scope.running() == 0; }));
    qunsetenv("QUORVANE_EASEL_BASE_URL");
    EXPECT_EQ(failure, QString());
    EXPECT_EQ(image.bytes, "Man");
    EXPECT_EQ(image.extension, u"png"_s);
    ASSERT_EQ(server.requests().size(), 1);
    const HttpRequest arrived = server.requests().first();
    EXPECT_EQ(arrived.path, "/paint/oil");
    EXPECT_EQ(arrived.header("X-Easel"), "Key SECRET");
    EXPECT_EQ(arrived.body, R"({"large":true,"subject":"a lake"})");
}

} // namespace quorvane
