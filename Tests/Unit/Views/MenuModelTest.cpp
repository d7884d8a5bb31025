#include "Views/Menu/MenuModel.h"

#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

using namespace Qt::StringLiterals;

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
    EXPECT_EQ(model->stateLine(), u"Idle"_s);
    EXPECT_EQ(model->generateText(), u"Generate Now"_s);
    EXPECT_EQ(model->autoText(), u"Auto-Generate"_s);
    EXPECT_EQ(model->settingsText(), u"Settings..."_s);
    EXPECT_EQ(model->quitText(), u"Quit"_s);
}

TEST_F(MenuModelTest, theSwitchStartsAndStopsTheSchedule)
{
    attach().toggleAuto();
    EXPECT_TRUE(manager->autoEnabled());
    EXPECT_TRUE(model->autoEnabled());
    EXPECT_TRUE(model->stateLine().startsWith("Next: "_L1));
    model->toggleAuto();
    EXPECT_FALSE(manager->autoEnabled());
    EXPECT_EQ(model->stateLine(), u"Idle"_s);
}

TEST_F(MenuModelTest, itGeneratesOnlyWhenTheSidebarCould)
{
    EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
    store(SettingsKeys::kLastPrompt, u"a lake"_s);
    attach().generate();
    EXPECT_FALSE(manager->isLoading());
    model->setCanGenerate(true);
    model->generate();
    EXPECT_TRUE(manager->isLoading());
    EXPECT_EQ(model->stateLine(), u"Generating..."_s);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 1);
}

} // namespace quorvane
