#include "Views/Sidebar/SidebarModel.h"

#include "Manager/SettingsKeys.h"
#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"

using namespace Qt::StringLiterals;

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
    store(SettingsKeys::kLastPrompt, u"a lake"_s);
    EXPECT_EQ(attach().promptText(), u"a lake"_s);
    model->setPromptText(u"a hill"_s);
    EXPECT_EQ(manager->prompt(), u"a hill"_s);
}

TEST_F(SidebarModelTest, generatingNeedsAPromptAKeyAndNoRun)
{
    EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
    attach();
    EXPECT_FALSE(model->canGenerate());
    model->generate();
    EXPECT_FALSE(manager->isLoading());
    model->setPromptText(u" "_s);
    // Whether a key is missing is not known yet, and not claimed either.
    EXPECT_FALSE(model->canGenerate());
    EXPECT_EQ(model->missingKeys(), QStringList());
    EXPECT_TRUE(waitFor([&] { return model->canGenerate(); }));
    (void)manager->removeKey(u"gemini"_s);
    EXPECT_TRUE(waitFor([&] { return !model->canGenerate(); }));
    EXPECT_EQ(model->missingKeys(), QStringList{u"Gemini"_s});
    (void)manager->saveKey(QString(), u"gemini"_s);
    EXPECT_TRUE(waitFor([&] { return model->canGenerate(); }));
    model->generate();
    EXPECT_FALSE(model->canGenerate());
    manager->waitUntilIdle();
    EXPECT_TRUE(waitFor([&] { return model->canGenerate(); }));
}

TEST_F(SidebarModelTest, anotherServiceNeedsItsOwnKeyAtOnce)
{
    EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
    attach().setPromptText(u"a lake"_s);
    ASSERT_TRUE(waitFor([&] { return model->canGenerate(); }));
    manager->setProviderOverride(u"openai"_s);
    EXPECT_FALSE(model->canGenerate());
    EXPECT_EQ(model->missingKeys(), QStringList{u"OpenAI"_s});
}

TEST_F(SidebarModelTest, theHintNamesTheWayTo4KWhereTheServiceHasNone)
{
    attach();
    manager->setFourKEnabled(true);
    EXPECT_EQ(model->upscaleHint(), QString());
    manager->setProviderOverride(u"grok"_s);
    EXPECT_EQ(model->upscaleHint(), u"+ Gemini 4K"_s);
    manager->setUpscaleMethod(UpscaleMethod::Local);
    EXPECT_EQ(model->upscaleHint(), u"+ Local 4K"_s);
    defaults->set(SettingsKeys::kUpscaleMethod, u"something else"_s);
    EXPECT_EQ(model->upscaleHint(), u"+ Gemini 4K"_s);
    manager->setFourKEnabled(false);
    EXPECT_EQ(model->upscaleHint(), QString());
}

TEST_F(SidebarModelTest, theNsfwSwitchIsShownOnlyWhereItMeansSomething)
{
    attach();
    EXPECT_TRUE(model->nsfwShown());
    manager->setProviderOverride(u"openai"_s);
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
    EXPECT_EQ(model->intervalLabel(), u"7 min"_s);
}

TEST_F(SidebarModelTest, theNextTimeIsToldOnlyWhileTheScheduleRuns)
{
    attach();
    EXPECT_EQ(model->nextFireText(), QString());
    model->setAutoEnabled(true);
    EXPECT_TRUE(model->nextFireText().startsWith("Next: "_L1));
    // The plain locale's short time has seconds.
    const QLocale before;
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(model->nextFireText().count(':'_L1), 2) << model->nextFireText().toStdString();
    QLocale::setDefault(before);
    model->setAutoEnabled(false);
    EXPECT_EQ(model->nextFireText(), QString());
}

} // namespace quorvane
