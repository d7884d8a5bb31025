#include "Unit/Manager/Generate/WallpaperManagerGenerateFixture.h"

#include "Manager/SettingsKeys.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(WallpaperManagerGenerateTest, geminiWith4KMakesOneFileAndNoLink)
{
    start().setFourKEnabled(true);
    generate();
    EXPECT_EQ(files(), (QStringList{u"prompts.json"_s, u"wallpaper_2026-01-31_23-59-01.png"_s}));
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
}

TEST_F(WallpaperManagerGenerateTest, grokWith4KLocallySavesTheOriginalThenTheUpscaledPictureAndLinksThem)
{
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    generate();
    const QString original = u"wallpaper_2026-01-31_23-59-01.jpg"_s;
    const QString upscaled = u"wallpaper_2026-01-31_23-59-02.png"_s;
    EXPECT_EQ(sideFile("variants.json"), (u"{\"%1\":\"%2\"}"_s.arg(original, upscaled)).toUtf8());
    EXPECT_EQ(sideFile("prompts.json"), (u"{\"%1\":\"a lake\",\"%2\":\"a lake\"}"_s.arg(original, upscaled)).toUtf8());
    EXPECT_EQ(contentOf(inLibrary(upscaled.toLatin1())), "4K of " + contentOf(inLibrary(original.toLatin1())));
    EXPECT_EQ(manager->history(), QStringList{inLibrary(upscaled.toLatin1())});
    EXPECT_EQ(manager->currentWallpaperURL(), inLibrary(upscaled.toLatin1()));
    EXPECT_EQ(result.original, inLibrary(original.toLatin1()));
    EXPECT_EQ(statuses, (QStringList{QString(), u"Upscaling to 4K (local)..."_s, u"Wallpaper set!"_s}));
    EXPECT_FALSE(manager->progress());
}

TEST_F(WallpaperManagerGenerateTest, grokWith4KRemotelyAsksGemini)
{
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    generate();
    const auto requests = service.requests();
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests.at(0).header("Authorization"), "Bearer key of grok");
    EXPECT_EQ(requests.at(1).path, "/v1beta/models/gemini-3-pro-image-preview:generateContent");
    EXPECT_EQ(requests.at(1).header("x-goog-api-key"), "key of gemini");
    EXPECT_EQ(statuses, (QStringList{QString(), u"Upscaling to 4K..."_s, u"Wallpaper set!"_s}));
    EXPECT_EQ(manager->history(), QStringList{inLibrary("wallpaper_2026-01-31_23-59-02.png")});
}

TEST_F(WallpaperManagerGenerateTest, withoutAGeminiKeyTheOriginalIsSavedTwiceAndLinkedWithoutAWord)
{
    EXPECT_TRUE(Keychain::remove(u"gemini"_s));
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    generate();
    const QByteArray first = contentOf(inLibrary("wallpaper_2026-01-31_23-59-01.jpg"));
    EXPECT_FALSE(first.isEmpty());
    EXPECT_EQ(contentOf(inLibrary("wallpaper_2026-01-31_23-59-02.jpg")), first);
    EXPECT_EQ(sideFile("variants.json"),
              R"({"wallpaper_2026-01-31_23-59-01.jpg":"wallpaper_2026-01-31_23-59-02.jpg"})");
    EXPECT_EQ(statuses, (QStringList{QString(), u"Wallpaper set!"_s}));
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(WallpaperManagerGenerateTest, anOriginalThatCannotBeSavedLeavesNoLink)
{
    clock.secondsPerLook = 0;
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    // The original's name is taken by a folder; the upscaled picture has another extension.
    ASSERT_TRUE(QDir(home.library()).mkpath(u"wallpaper_2026-01-31_23-59-00.jpg/inside"_s));
    generate();
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_EQ(sideFile("prompts.json"), R"({"wallpaper_2026-01-31_23-59-00.png":"a lake"})");
    EXPECT_TRUE(sideFile("variants.json").isEmpty());
    EXPECT_EQ(result.original, QString());
}

TEST_F(WallpaperManagerGenerateTest, wants4KIsWhatHoldsAtTheMomentOfTheCall)
{
    start().setProviderOverride(u"openai"_s);
    generate();
    manager->setFourKEnabled(true);
    generate();
    const auto requests = service.requests();
    ASSERT_EQ(requests.size(), 2);
    EXPECT_TRUE(requests.at(0).body.contains(R"("size":"1536x1024")"));
    EXPECT_TRUE(requests.at(1).body.contains(R"("size":"3840x2160")"));
}

TEST_F(WallpaperManagerGenerateTest, openAIsOlderModelsAreUpscaled)
{
    start().setProviderOverride(u"openai"_s);
    manager->setFourKEnabled(true);
    defaults->set(SettingsKeys::selectedModel(u"openai"_s), u"gpt-image-1"_s);
    generate();
    ASSERT_EQ(service.requests().size(), 2);
    EXPECT_TRUE(service.requests().first().body.contains(R"("moderation":"low")"));
    EXPECT_TRUE(sideFile("variants.json").contains("wallpaper_2026-01-31_23-59-01.png"));
}

} // namespace quorvane
