#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quorvane {

using WallpaperManagerTest = ManagerTest;

TEST_F(WallpaperManagerTest, theProviderFollowsTheOverrideThenTheNsfwSwitch)
{
    struct Case
    {
        const char *override;
        bool nsfw;
        const char *provider;
        bool applies;
    };
    start();
    for (const Case &each :
         {Case{"auto", false, "gemini", true}, Case{"auto", true, "grok", true}, Case{"grok", false, "grok", true},
          Case{"grok", true, "grok", true}, Case{"gemini", true, "gemini", false},
          Case{"openai", true, "openai", false}, Case{"openai", false, "openai", false},
          Case{"nobody", true, "gemini", false}, Case{"", false, "gemini", false}}) {
        manager->setProviderOverride(QLatin1String(each.override));
        manager->setNsfwEnabled(each.nsfw);
        EXPECT_EQ(manager->resolvedProvider().id(), QLatin1String(each.provider)) << each.override << each.nsfw;
        EXPECT_EQ(manager->nsfwApplies(), each.applies) << each.override;
    }
}

TEST_F(WallpaperManagerTest, aModelThatIsNotOfferedFallsBackToTheFirst)
{
    start();
    defaults->set(SettingsKeys::selectedModel(u"gemini"_s), u"gemini-3-pro-image-preview"_s);
    EXPECT_EQ(manager->resolvedModelId(), u"gemini-3-pro-image-preview"_s);
    for (const char *stale : {"gemini-1", "", "GEMINI-3-pro-image-preview"}) {
        defaults->set(SettingsKeys::selectedModel(u"gemini"_s), QLatin1String(stale));
        EXPECT_EQ(manager->resolvedModelId(), u"gemini-2.5-flash-image"_s) << stale;
    }
}

TEST_F(WallpaperManagerTest, native4KDependsOnProviderAndModel)
{
    start();
    EXPECT_TRUE(manager->providerProducesNative4K());
    manager->setProviderOverride(u"grok"_s);
    EXPECT_FALSE(manager->providerProducesNative4K());
    manager->setProviderOverride(u"openai"_s);
    EXPECT_TRUE(manager->providerProducesNative4K());
    for (const char *model : {"gpt-image-1", "gpt-image-1.5", "gpt-image-1-mini"}) {
        defaults->set(SettingsKeys::selectedModel(u"openai"_s), QLatin1String(model));
        EXPECT_FALSE(manager->providerProducesNative4K()) << model;
    }
    defaults->set(SettingsKeys::selectedModel(u"openai"_s), u"gpt-image-2"_s);
    EXPECT_TRUE(manager->providerProducesNative4K());
}

TEST_F(WallpaperManagerTest, missingKeysNameTheProviderAndTheRemoteUpscale)
{
    start();
    manager->setProviderOverride(u"grok"_s);
    manager->setFourKEnabled(true);
    EXPECT_EQ(manager->missingKeys(), (QStringList{u"Grok"_s, u"Gemini (for 4K upscale)"_s}));

    EXPECT_TRUE(Keychain::save(u"K"_s, u"grok"_s));
    EXPECT_EQ(manager->missingKeys(), QStringList{u"Gemini (for 4K upscale)"_s});

    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    EXPECT_TRUE(manager->missingKeys().isEmpty());
    defaults->set(SettingsKeys::kUpscaleMethod, u"Local"_s);
    EXPECT_EQ(manager->missingKeys(), QStringList{u"Gemini (for 4K upscale)"_s});

    manager->setFourKEnabled(false);
    EXPECT_TRUE(manager->missingKeys().isEmpty());

    // An empty key is a key.
    manager->setFourKEnabled(true);
    EXPECT_TRUE(Keychain::save(QString(), u"gemini"_s));
    EXPECT_TRUE(manager->missingKeys().isEmpty());
}

TEST_F(WallpaperManagerTest, geminiIsNotMissedTwice)
{
    start();
    manager->setFourKEnabled(true);
    EXPECT_EQ(manager->missingKeys(), QStringList{u"Gemini"_s});
}

TEST_F(WallpaperManagerTest, anUnreadableKeyFileHoldsNoKeys)
{
    start();
    EXPECT_TRUE(Keychain::save(u"K"_s, u"gemini"_s));
    EXPECT_TRUE(manager->missingKeys().isEmpty());
    QFile file(home.path() + u"/Library/Application Support/Quorvane/keys.json"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"gemini":5})");
    file.close();
    EXPECT_EQ(manager->missingKeys(), QStringList{u"Gemini"_s});
}

TEST_F(WallpaperManagerTest, aChosenModelIsAnnouncedWithItsProvider)
{
    start();
    const QSignalSpy announced(manager.get(), &WallpaperManager::selectedModelChanged);
    manager->setSelectedModel(u"openai"_s, u"gpt-image-1"_s);
    ASSERT_EQ(announced.count(), 1);
    EXPECT_EQ(announced.first().first().toString(), u"openai"_s);
}

} // namespace quorvane
