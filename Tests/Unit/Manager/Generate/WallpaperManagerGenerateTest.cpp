#include "Unit/Manager/Generate/WallpaperManagerGenerateFixture.h"

#include "Manager/SettingsKeys.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(WallpaperManagerGenerateTest, aPromptBecomesASavedPictureWithItsPromptAndTheWallpaper)
{
    start();
    generate(u"a quiet lake"_s);
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_FALSE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    const QString path = inLibrary("wallpaper_2026-01-31_23-59-01.png");
    EXPECT_EQ(manager->history(), QStringList{path});
    EXPECT_EQ(manager->currentWallpaperURL(), path);
    EXPECT_EQ(desktop.shown(), QStringList{path});
    EXPECT_EQ(result.file, path);
    EXPECT_EQ(QImage(path).size(), QSize(8, 8));
    EXPECT_EQ(sideFile("prompts.json"), R"({"wallpaper_2026-01-31_23-59-01.png":"a quiet lake"})");
    EXPECT_EQ(statuses, (QStringList{QString(), u"Wallpaper set!"_s}));
    EXPECT_EQ(defaults->text(SettingsKeys::kCurrentWallpaperPath), path);
}

TEST_F(WallpaperManagerGenerateTest, anEmptyPromptGoesOutAsItIs)
{
    start();
    generate(QString());
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_TRUE(service.requests().first().body.contains(R"({"text":""})"));
}

TEST_F(WallpaperManagerGenerateTest, aStaleModelIsNotSent)
{
    start().setProviderOverride(u"openai"_s);
    defaults->set(SettingsKeys::selectedModel(u"openai"_s), u"gpt-image-0"_s);
    generate();
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_TRUE(service.requests().first().body.contains(R"("model":"gpt-image-2")"));
}

TEST_F(WallpaperManagerGenerateTest, nsfwPromptsGoToGrokUnlessAnotherProviderIsChosen)
{
    start().setNsfwEnabled(true);
    generate();
    manager->setProviderOverride(u"openai"_s);
    generate();
    ASSERT_EQ(service.requests().size(), 2);
    EXPECT_TRUE(service.requests().at(0).body.contains("grok-imagine-image"));
    EXPECT_TRUE(service.requests().at(1).body.contains("gpt-image-2"));
}

TEST_F(WallpaperManagerGenerateTest, twoRunsAtOnceAreBothCarriedOut)
{
    start();
    manager->setPrompt(u"first"_s);
    manager->generateAndSet();
    manager->setPrompt(u"second"_s);
    manager->generateAndSet();
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 2);
    EXPECT_TRUE(sideFile("prompts.json").contains("first"));
    EXPECT_TRUE(sideFile("prompts.json").contains("second"));
    EXPECT_FALSE(manager->isLoading());
}

TEST_F(WallpaperManagerGenerateTest, aKeyThatWouldBeginAnotherHeaderIsNotSent)
{
    EXPECT_TRUE(Keychain::save(u"K\r\nX-Evil: 1"_s, u"gemini"_s));
    start();
    generate();
    EXPECT_EQ(manager->status(),
              u"Network error: The stored API key has a character that cannot be sent. Save the key again."_s);
    EXPECT_TRUE(service.requests().isEmpty());
}

} // namespace quorvane
