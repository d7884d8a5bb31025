#include "Views/Menu/MenuModel.h"

#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

class MenuModelTest : public ManagerTest
{
  protected:
    MenuModel &attach()
    {
        start();
        model = std::make_unique<MenuModel>();
        model->setManager(manager.get());
        return *model;
    }
    ~MenuModelTest() override { model.reset(); }

    std::unique_ptr<MenuModel> model;
};

TEST_F(MenuModelTest, itIsNeededOnlyWhileNoPanelShowsTheIcon)
{
    attach();
    EXPECT_FALSE(model->isNeeded());
    model->setTrayShown(false);
    EXPECT_TRUE(model->isNeeded());
    model->setTrayShown(true);
    EXPECT_FALSE(model->isNeeded());
}

TEST_F(MenuModelTest, itSaysWhatTheIconsMenuSays)
{
    attach();
    EXPECT_EQ(model->stateLine(), QStringLiteral("Idle"));
    EXPECT_EQ(model->generateText(), QStringLiteral("Generate Now"));
    EXPECT_EQ(model->autoText(), QStringLiteral("Auto-Generate"));
    EXPECT_EQ(model->settingsText(), QStringLiteral("Settings..."));
    EXPECT_EQ(model->quitText(), QStringLiteral("Quit"));
}

TEST_F(MenuModelTest, theSwitchStartsAndStopsTheSchedule)
{
    attach().toggleAuto();
    EXPECT_TRUE(manager->autoEnabled());
    EXPECT_TRUE(model->autoEnabled());
    EXPECT_TRUE(model->stateLine().startsWith(QLatin1String("Next: ")));
    model->toggleAuto();
    EXPECT_FALSE(manager->autoEnabled());
    EXPECT_EQ(model->stateLine(), QStringLiteral("Idle"));
}

TEST_F(MenuModelTest, itGeneratesOnlyWhenTheSidebarCould)
{
    Keychain::save(QStringLiteral("KEY"), QStringLiteral("gemini"));
    store(SettingsKeys::kLastPrompt, QStringLiteral("a lake"));
    attach().generate();
    EXPECT_FALSE(manager->isLoading());
    model->setCanGenerate(true);
    model->generate();
    EXPECT_TRUE(manager->isLoading());
    EXPECT_EQ(model->stateLine(), QStringLiteral("Generating..."));
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 1);
}

} // namespace quorvane
