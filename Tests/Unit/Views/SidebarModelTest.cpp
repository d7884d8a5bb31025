#include "Views/Sidebar/SidebarModel.h"

#include "Manager/SettingsKeys.h"
#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

class SidebarModelTest : public ManagerTest
{
  protected:
    SidebarModel &attach()
    {
        start();
        model = std::make_unique<SidebarModel>();
        model->setManager(manager.get());
        return *model;
    }
    ~SidebarModelTest() override { model.reset(); }

    std::unique_ptr<SidebarModel> model;
};

TEST_F(SidebarModelTest, thePromptComesFromTheManagerAndGoesBack)
{
    store(SettingsKeys::kLastPrompt, QStringLiteral("a lake"));
    EXPECT_EQ(attach().promptText(), QStringLiteral("a lake"));
    model->setPromptText(QStringLiteral("a hill"));
    EXPECT_EQ(manager->prompt(), QStringLiteral("a hill"));
}

TEST_F(SidebarModelTest, generatingNeedsAPromptAKeyAndNoRun)
{
    Keychain::save(QStringLiteral("KEY"), QStringLiteral("gemini"));
    attach();
    EXPECT_FALSE(model->canGenerate());
    model->generate();
    EXPECT_FALSE(manager->isLoading());
    model->setPromptText(QStringLiteral(" "));
    // Whether a key is missing is not known yet, and not claimed either.
    EXPECT_FALSE(model->canGenerate());
    EXPECT_EQ(model->missingKeys(), QStringList());
    EXPECT_TRUE(waitFor([&] { return model->canGenerate(); }));
    manager->removeKey(QStringLiteral("gemini"));
    EXPECT_TRUE(waitFor([&] { return !model->canGenerate(); }));
    EXPECT_EQ(model->missingKeys(), QStringList{QStringLiteral("Gemini")});
    manager->saveKey(QString(), QStringLiteral("gemini"));
    EXPECT_TRUE(waitFor([&] { return model->canGenerate(); }));
    model->generate();
    EXPECT_FALSE(model->canGenerate());
    manager->waitUntilIdle();
    EXPECT_TRUE(waitFor([&] { return model->canGenerate(); }));
}

TEST_F(SidebarModelTest, anotherServiceNeedsItsOwnKeyAtOnce)
{
    Keychain::save(QStringLiteral("KEY"), QStringLiteral("gemini"));
    attach().setPromptText(QStringLiteral("a lake"));
    ASSERT_TRUE(waitFor([&] { return model->canGenerate(); }));
    manager->setProviderOverride(QStringLiteral("openai"));
    EXPECT_FALSE(model->canGenerate());
    EXPECT_EQ(model->missingKeys(), QStringList{QStringLiteral("OpenAI")});
}

TEST_F(SidebarModelTest, theHintNamesTheWayTo4KWhereTheServiceHasNone)
{
    attach();
    manager->setFourKEnabled(true);
    EXPECT_EQ(model->upscaleHint(), QString());
    manager->setProviderOverride(QStringLiteral("grok"));
    EXPECT_EQ(model->upscaleHint(), QStringLiteral("+ Gemini 4K"));
    manager->setUpscaleMethod(QStringLiteral("local"));
    EXPECT_EQ(model->upscaleHint(), QStringLiteral("+ Local 4K"));
    manager->setUpscaleMethod(QStringLiteral("something else"));
    EXPECT_EQ(model->upscaleHint(), QStringLiteral("+ Gemini 4K"));
    manager->setFourKEnabled(false);
    EXPECT_EQ(model->upscaleHint(), QString());
}

TEST_F(SidebarModelTest, theNsfwSwitchIsShownOnlyWhereItMeansSomething)
{
    attach();
    EXPECT_TRUE(model->nsfwShown());
    manager->setProviderOverride(QStringLiteral("openai"));
    EXPECT_FALSE(model->nsfwShown());
}

TEST_F(SidebarModelTest, anIntervalThatIsNotOnOfferIsStillNamed)
{
    attach();
    EXPECT_EQ(model->intervalLabels().size(), WallpaperManager::intervalOptions().size());
    model->chooseInterval(0);
    EXPECT_EQ(model->intervalIndex(), 0);
    EXPECT_EQ(manager->intervalMinutes(), WallpaperManager::intervalOptions().first());
    manager->setIntervalMinutes(7);
    EXPECT_EQ(model->intervalIndex(), -1);
    EXPECT_EQ(model->intervalLabel(), QStringLiteral("7 min"));
}

TEST_F(SidebarModelTest, theNextTimeIsToldOnlyWhileTheScheduleRuns)
{
    attach();
    EXPECT_EQ(model->nextFireText(), QString());
    model->setAutoEnabled(true);
    EXPECT_TRUE(model->nextFireText().startsWith(QLatin1String("Next: ")));
    model->setAutoEnabled(false);
    EXPECT_EQ(model->nextFireText(), QString());
}

} // namespace quorvane
