// What the user reads when a service is hostile or broken, and that nothing is left behind by it.

#include "Unit/Manager/ManagerFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Kind = Misbehaviour::Kind;

const QString kSet = u"Wallpaper set!"_s;
const QString kNoImage = u"Invalid response: No image in response"_s;
const QString kUnparsable = u"Invalid response: Failed to parse response"_s;
const QString kUndecodable = u"Invalid response: Failed to decode base64 image"_s;
const QString kNetwork = u"Network error: "_s;

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
    HostileServiceTest() { EXPECT_TRUE(Keychain::save(u"KEY"_s, QLatin1String(GetParam()))); }

    void expect(const Misbehaviour &misbehaviour, const QString &line)
    {
        // A start of its own, since some kinds show themselves only to a new connection.
        start().setProviderOverride(QLatin1String(GetParam()));
        service.setMisbehaviour(misbehaviour);
        const QStringList before = files();
        const QStringList shown = desktop.shown();
        generate();
        const std::string name = "kind " + std::to_string(static_cast<int>(misbehaviour.kind));
        if (line.endsWith(' '_L1)) {
            EXPECT_TRUE(manager->status().startsWith(line) && manager->status().size() > line.size())
                << name << ": " << manager->status().toStdString();
        } else {
            EXPECT_EQ(manager->status().toStdString(), line.toStdString()) << name;
        }
        EXPECT_EQ(manager->isError(), line != kSet) << name;
        EXPECT_FALSE(manager->isLoading()) << name;
        EXPECT_FALSE(manager->status().contains(u"KEY"_s)) << name;
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
    };
    const QString id = QLatin1String(GetParam());
    for (const Case &each : cases) {
        QString line = id == "grok"_L1 ? each.grok : each.gemini;
        expect(each.kind, line);
    }
}

TEST_P(HostileServiceTest, theServicesOwnWordsAreToldAsTheyAre)
{
    Misbehaviour quota(Kind::ErrorObject);
    quota.text = "quota \"exceeded\"\n水";
    expect(quota, u"API error: quota \"exceeded\"\n水"_s);
    // A zero character in the middle cuts nothing, and half a character is replaced.
    const QString odd = u"API error: before ? between "_s + QChar(u'\0') + u" after"_s;
    expect(Kind::OddErrorText, odd);
    EXPECT_EQ(manager->status(), odd);
}

TEST_P(HostileServiceTest, answersThatWouldFillTheMemoryAreRefused)
{
    const QString tooLarge = kNetwork + u"The answer is larger than 192 MiB."_s;
    expect(Kind::HugeAnswer, tooLarge);
    expect(Kind::EndlessBody, tooLarge);
}

TEST_P(HostileServiceTest, redirectsThatNeverEndAreGivenUp)
{
    Misbehaviour loop(Kind::RedirectLoop);
    loop.status = 303;
    expect(loop, kNetwork + u"The service redirected too many times."_s);
}

TEST_P(HostileServiceTest, redirectsThatWantTheRequestAgainAreNotFollowed)
{
    service.clearRequests();
    const QString moved = u"The service has moved to "_s + service.baseAddress().toString() + u"/elsewhere"_s;
    expect(Kind::Redirect, kNetwork + moved);
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_P(HostileServiceTest, redirectsKeepTheKeyAtHome)
{
    Misbehaviour away(Kind::Redirect);
    away.text = "http://service.example/";
    expect(away, kNetwork + u"The service redirected to an address without encryption."_s);

    DemoService other;
    away.status = 302;
    away.text = other.baseAddress().toEncoded() + "/elsewhere";
    expect(away, u"API error: "_s);
    ASSERT_EQ(other.requests().size(), 1);
    const HttpRequest arrived = other.requests().first();
    for (const auto &[name, value] : arrived.headers) {
        EXPECT_FALSE(value.contains("KEY")) << name.constData();
    }
}

} // namespace quorvane
