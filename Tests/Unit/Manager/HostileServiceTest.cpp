// What the user reads when a service is hostile or broken, and that nothing is left behind by it.

#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

namespace {

using Kind = Misbehaviour::Kind;

const QString kSet = QStringLiteral("Wallpaper set!");
const QString kNoImage = QStringLiteral("Invalid response: No image in response");
const QString kUnparsable = QStringLiteral("Invalid response: Failed to parse response");
const QString kUndecodable = QStringLiteral("Invalid response: Failed to decode base64 image");
const QString kNetwork = QStringLiteral("Network error: ");

struct Case
{
    Kind kind;
    QString gemini; ///< The status line; one that ends in a space is its beginning.
    QString grok;
};

} // namespace

class HostileServiceTest : public ManagerTest, public testing::WithParamInterface<const char *>
{
  protected:
    HostileServiceTest() { Keychain::save(QStringLiteral("KEY"), QLatin1String(GetParam())); }

    void expect(const Misbehaviour &misbehaviour, const QString &line)
    {
        // A start of its own, since some kinds show themselves only to a new connection.
        start().setProviderOverride(QLatin1String(GetParam()));
        service.setMisbehaviour(misbehaviour);
        const QStringList before = files();
        const QStringList shown = desktop.shown();
        generate();
        const std::string name = "kind " + std::to_string(static_cast<int>(misbehaviour.kind));
        if (line.endsWith(QLatin1Char(' '))) {
            EXPECT_TRUE(manager->status().startsWith(line) && manager->status().size() > line.size())
                << name << ": " << manager->status().toStdString();
        } else {
            EXPECT_EQ(manager->status().toStdString(), line.toStdString()) << name;
        }
        EXPECT_EQ(manager->isError(), line != kSet) << name;
        EXPECT_FALSE(manager->isLoading()) << name;
        EXPECT_FALSE(manager->status().contains(QStringLiteral("KEY"))) << name;
        if (line != kSet) {
            EXPECT_EQ(files(), before) << name;
            EXPECT_EQ(desktop.shown(), shown) << name;
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Service, HostileServiceTest, testing::Values("gemini", "grok", "openai"),
                         [](const auto &info) { return std::string(info.param); });

TEST_P(HostileServiceTest, eachKindHasItsStatusLine)
{
    const std::vector<Case> cases{
        {Kind::None, kSet, kSet},
        {Kind::ErrorText, kNoImage, kNoImage},
        {Kind::GoodBodyBadStatus, kSet, kSet},
        {Kind::JsonList, kUnparsable, kUnparsable},
        {Kind::PlainText, kUnparsable, kUnparsable},
        {Kind::EmptyBody, kUnparsable, kUnparsable},
        {Kind::NoPicture, kNoImage, kNoImage},
        {Kind::OddTexts, kSet, kSet},
        {Kind::InvalidUtf8, kUnparsable, kUnparsable},
        {Kind::ManyCandidates, kSet, kSet},
        {Kind::NestedLists, kUnparsable, kUnparsable},
        {Kind::DataAddress, kNoImage, kSet},
        {Kind::Base64MissingPadding, kNoImage, kUndecodable},
        {Kind::Base64SurplusPadding, kNoImage, kUndecodable},
        {Kind::Base64LineBreaks, kNoImage, kUndecodable},
        {Kind::Base64UrlAlphabet, kNoImage, kUndecodable},
        {Kind::SlowDrip, kSet, kSet},
        {Kind::ResetOnAccept, kNetwork, kNetwork},
        {Kind::ResetDuringRequest, kNetwork, kNetwork},
        {Kind::ResetAfterRequest, kNetwork, kNetwork},
        {Kind::ResetAfterHeaders, kNetwork, kNetwork},
        {Kind::ResetMidBody, kNetwork, kNetwork},
        {Kind::CutBody, kNetwork, kNetwork},
        {Kind::LengthTooLarge, kNetwork, kNetwork},
        {Kind::LengthTooSmall, kUnparsable, kUnparsable},
        {Kind::Chunked, kSet, kSet},
        {Kind::Gzip, kSet, kSet},
        {Kind::GzipBomb, kNetwork, kNetwork},
        {Kind::Garbage, kNetwork, kNetwork},
        {Kind::RedirectLoop, kNetwork + QStringLiteral("The service redirected too many times."),
         kNetwork + QStringLiteral("The service redirected too many times.")},
    };
    const QString id = QLatin1String(GetParam());
    for (const Case &each : cases) {
        QString line = id == QLatin1String("grok") ? each.grok : each.gemini;
        expect(each.kind, line);
    }
}

TEST_P(HostileServiceTest, theServicesOwnWordsAreToldAsTheyAre)
{
    Misbehaviour quota(Kind::ErrorObject);
    quota.text = "quota \"exceeded\"\n水";
    expect(quota, QStringLiteral("API error: quota \"exceeded\"\n水"));
    expect(Kind::OddErrorText, QStringLiteral("API error: "));
}

TEST_P(HostileServiceTest, answersThatWouldFillTheMemoryAreRefused)
{
    const QString tooLarge = kNetwork + QStringLiteral("The answer is larger than 192 MiB.");
    expect(Kind::HugeAnswer, tooLarge);
    expect(Kind::EndlessBody, tooLarge);
}

TEST_P(HostileServiceTest, redirectsKeepTheKeyAtHome)
{
    Misbehaviour away(Kind::Redirect);
    away.text = "http://service.example/";
    expect(away, kNetwork + QStringLiteral("The service redirected to an address without encryption."));

    DemoService other;
    away.text = other.baseAddress().toEncoded() + "/elsewhere";
    expect(away, QStringLiteral("API error: "));
    ASSERT_EQ(other.requests().size(), 1);
    const HttpRequest arrived = other.requests().first();
    for (const auto &[name, value] : arrived.headers) {
        EXPECT_FALSE(value.contains("KEY")) << name.constData();
    }
}

} // namespace quorvane
