#include "Manager/ProviderChoice.h"

#include "Platform/Network/HttpClient.h"
#include "Providers/ImageServices.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

class ProviderChoiceTest : public testing::Test
{
  protected:
    HttpClient http;
    Providers providers = allProviders(http);
    ProviderChoice choice{u"auto"_s, false, false, UpscaleMethod::Gemini, {}};
};

TEST_F(ProviderChoiceTest, anExplicitChoiceWinsOverTheNsfwSwitch)
{
    EXPECT_EQ(choice.provider(providers).id(), u"gemini"_s);
    choice.nsfwEnabled = true;
    EXPECT_EQ(choice.provider(providers).id(), u"grok"_s);
    EXPECT_TRUE(choice.nsfwApplies(providers));
    choice.override = u"openai"_s;
    EXPECT_EQ(choice.provider(providers).id(), u"openai"_s);
    EXPECT_FALSE(choice.nsfwApplies(providers));
    choice.override = u"nobody"_s;
    EXPECT_EQ(choice.provider(providers).id(), u"gemini"_s);
}

TEST_F(ProviderChoiceTest, theFirstProviderIsTheUsualOneAndAnotherSaysThatItTakesNsfw)
{
    const Providers others = ProviderList<OpenAIProvider, GrokProvider>::make(http);
    EXPECT_EQ(choice.provider(others).id(), u"openai"_s);
    choice.override = u"nobody"_s;
    EXPECT_EQ(choice.provider(others).id(), u"openai"_s);
    choice.nsfwEnabled = true;
    EXPECT_EQ(choice.provider(others).id(), u"openai"_s);
    choice.override = kAutomatic;
    EXPECT_EQ(choice.provider(others).id(), u"grok"_s);
    const Providers oneAlone = ProviderList<OpenAIProvider>::make(http);
    EXPECT_EQ(choice.provider(oneAlone).id(), u"openai"_s);
}

TEST_F(ProviderChoiceTest, aChosenModelCountsOnlyForItsProviderAndWhileItIsOffered)
{
    choice.chosenModels = {{u"openai"_s, u"gpt-image-1"_s}, {u"gemini"_s, u"gemini-1"_s}};
    EXPECT_EQ(choice.modelId(providers), u"gemini-2.5-flash-image"_s);
    EXPECT_EQ(choice.modelOf(providers, u"openai"_s), u"gpt-image-1"_s);
    EXPECT_EQ(choice.modelOf(providers, u"grok"_s), u"grok-imagine-image"_s);
    EXPECT_EQ(choice.modelOf(providers, u"nobody"_s), QString());
}

TEST_F(ProviderChoiceTest, whatIsNotMadeIn4KIsEnlargedWhere4KIsWanted)
{
    struct Case
    {
        const char *provider;
        const char *model;
        bool isNative;
    };
    for (const Case &each : {Case{"gemini", "", true}, Case{"grok", "", false}, Case{"openai", "gpt-image-2", true},
                             Case{"openai", "gpt-image-1", false}}) {
        choice.override = QLatin1String(each.provider);
        choice.chosenModels = {{choice.override, QLatin1String(each.model)}};
        choice.fourKEnabled = false;
        EXPECT_EQ(choice.producesNative4K(providers), each.isNative) << each.provider << each.model;
        EXPECT_FALSE(choice.needsUpscale(providers));
        choice.fourKEnabled = true;
        EXPECT_EQ(choice.needsUpscale(providers), !each.isNative) << each.provider << each.model;
    }
}

TEST_F(ProviderChoiceTest, theKeyOfTheRemoteUpscaleIsMissedOnlyWhereItIsNeeded)
{
    choice.override = u"grok"_s;
    choice.fourKEnabled = true;
    const QString forUpscale = u"Gemini (for 4K upscale)"_s;
    EXPECT_EQ(choice.missingKeys(providers, {}), (QStringList{u"Grok"_s, forUpscale}));
    EXPECT_EQ(choice.missingKeys(providers, {u"grok"_s}), QStringList{forUpscale});
    EXPECT_TRUE(choice.missingKeys(providers, {u"grok"_s, u"gemini"_s}).isEmpty());
    choice.upscaleMethod = UpscaleMethod::Local;
    EXPECT_TRUE(choice.missingKeys(providers, {u"grok"_s}).isEmpty());
    choice.upscaleMethod = UpscaleMethod::Gemini;
    choice.override = u"gemini"_s;
    EXPECT_EQ(choice.missingKeys(providers, {}), QStringList{u"Gemini"_s});
}

} // namespace quorvane
