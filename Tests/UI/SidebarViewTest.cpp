#include "UI/SidebarViewFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(SidebarView, theButtonMakesAPictureAndTheStatusSaysSo)
{
    openWith({u"gemini"_s});
    click(u"promptEditor"_s);
    type(u"a lake"_s);
    EXPECT_FALSE(isSeen(u"status"_s));
    EXPECT_EQ(textOf(find(u"generateButton"_s)), u"Generate & Set Wallpaper"_s);
    click(u"generateButton"_s);
    EXPECT_EQ(textOf(find(u"generateButton"_s)), u"Generating..."_s);
    EXPECT_FALSE(find(u"generateButton"_s)->isEnabled());
    manager->waitUntilIdle();
    EXPECT_TRUE(isSeen(u"status"_s));
    EXPECT_EQ(textOf(find(u"status"_s)), u"Wallpaper set!"_s);
    EXPECT_EQ(find(u"statusSymbol"_s)->property("name"), u"checkmark.circle.fill"_s);
    EXPECT_GT(symbolColor().green(), symbolColor().red());
    EXPECT_TRUE(waitFor([&] { return isSeen(u"album a lake"_s); }));
}

TEST_F(SidebarView, anEmptiedPromptDisablesTheButtonAndTheMenusLine)
{
    openWith({u"gemini"_s});
    window->setProperty("trayShown", false);
    const auto menuLine = [this] {
        click(u"menuButton"_s);
        EXPECT_TRUE(waitFor([&] { return isReachable(u"menuAuto"_s); }));
        const bool isEnabled = find(u"menuGenerate"_s)->isEnabled();
        QTest::keyClick(window, Qt::Key_Escape);
        EXPECT_TRUE(waitFor([&] { return !isSeen(u"menuAuto"_s); }));
        return isEnabled;
    };
    click(u"promptEditor"_s);
    type(u"a"_s);
    EXPECT_TRUE(waitFor([&] { return find(u"generateButton"_s)->isEnabled(); }));
    EXPECT_TRUE(menuLine());
    click(u"promptEditor"_s);
    QTest::keyClick(window, Qt::Key_Backspace);
    EXPECT_EQ(manager->prompt(), QString());
    EXPECT_FALSE(find(u"generateButton"_s)->isEnabled());
    EXPECT_FALSE(menuLine());
}

TEST_F(SidebarView, theHintTellsWhatEnlargesWhereTheServiceDoesNot)
{
    openWith({u"gemini"_s, u"grok"_s});
    manager->setFourKEnabled(true);
    EXPECT_FALSE(isSeen(u"upscaleHint"_s));
    manager->setProviderOverride(u"grok"_s);
    EXPECT_EQ(textOf(find(u"upscaleHint"_s)), u"+ Gemini 4K"_s);
    EXPECT_TRUE(isSeen(u"upscaleHint"_s));
}

TEST_F(SidebarView, controlAndEnterGenerateFromTheEditor)
{
    openWith({u"gemini"_s});
    click(u"promptEditor"_s);
    type(u"a lake"_s);
    QTest::keyClick(window, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(manager->isLoading());
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 1);
    EXPECT_EQ(manager->prompt(), u"a lake"_s);
}

TEST_F(SidebarView, aMissingKeyIsNamedAndDisablesTheButton)
{
    store(SettingsKeys::kLastPrompt, u"a lake"_s);
    openWith({});
    EXPECT_TRUE(waitFor([&] { return isSeen(u"missingKeys"_s); }));
    EXPECT_FALSE(find(u"generateButton"_s)->isEnabled());
    (void)manager->saveKey(u"KEY"_s, u"gemini"_s);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"missingKeys"_s); }));
    EXPECT_TRUE(waitFor([&] { return find(u"generateButton"_s)->isEnabled(); }));
}

TEST_F(SidebarView, theScheduleShowsItsRowsOnlyWhileItIsOn)
{
    openWith({u"gemini"_s});
    EXPECT_FALSE(isSeen(u"intervalPicker"_s));
    click(u"autoToggle"_s);
    EXPECT_TRUE(manager->autoEnabled());
    EXPECT_TRUE(isSeen(u"intervalPicker"_s));
    EXPECT_TRUE(isSeen(u"nextFire"_s));
    click(u"autoToggle"_s);
    EXPECT_FALSE(manager->autoEnabled());
    EXPECT_FALSE(isSeen(u"intervalPicker"_s));
    EXPECT_FALSE(isSeen(u"nextFire"_s));
}

TEST_F(SidebarView, aSwitchFollowsTheManagerAfterItWasClicked)
{
    openWith({u"gemini"_s});
    click(u"fourKToggle"_s);
    EXPECT_TRUE(manager->fourKEnabled());
    manager->setFourKEnabled(false);
    EXPECT_FALSE(find(u"fourKToggle"_s)->property("checked").toBool());
}

TEST_F(SidebarView, theMenuOfTheIconIsInTheWindowWhileNoPanelShowsIt)
{
    start();
    open();
    EXPECT_FALSE(isSeen(u"menuButton"_s));
    window->setProperty("trayShown", false);
    click(u"menuButton"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"menuAuto"_s); }));
    EXPECT_EQ(textOf(find(u"menuState"_s)), u"Idle"_s);
    EXPECT_FALSE(find(u"menuGenerate"_s)->isEnabled());
    click(u"menuAuto"_s);
    EXPECT_TRUE(manager->autoEnabled());

    QSignalSpy settings(window, SIGNAL(settingsRequested()));
    QSignalSpy quit(window, SIGNAL(quitRequested()));
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"menuAuto"_s); }));
    click(u"menuButton"_s);
    EXPECT_TRUE(waitFor([&] { return isReachable(u"menuAuto"_s); }));
    EXPECT_TRUE(find(u"menuAuto"_s)->property("checked").toBool());
    click(u"menuSettings"_s);
    EXPECT_EQ(settings.size(), 1);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"menuAuto"_s); }));
    click(u"menuButton"_s);
    click(u"menuQuit"_s);
    EXPECT_EQ(quit.size(), 1);
    window->setProperty("trayShown", true);
    EXPECT_FALSE(isSeen(u"menuButton"_s));
}

} // namespace quorvane
