#include "Manager/SettingsKeys.h"
#include "UI/ViewFixture.h"

#include <QSignalSpy>

namespace quorvane {

class SidebarView : public ViewTest
{
  protected:
    void openWith(const QStringList &keys)
    {
        for (const QString &id : keys) {
            Keychain::save(QStringLiteral("KEY"), id);
        }
        start();
        ASSERT_NE(open(), nullptr);
    }
    [[nodiscard]] QColor symbolColor() const
    {
        return find(QStringLiteral("statusSymbol"))->property("color").value<QColor>();
    }
};

TEST_F(SidebarView, whatIsTypedBecomesThePromptAndEnablesTheButton)
{
    openWith({QStringLiteral("gemini")});
    EXPECT_FALSE(find(QStringLiteral("generateButton"))->isEnabled());
    click(QStringLiteral("promptEditor"));
    type(QStringLiteral("a lake"));
    EXPECT_EQ(manager->prompt(), QStringLiteral("a lake"));
    EXPECT_TRUE(find(QStringLiteral("generateButton"))->isEnabled());
    EXPECT_FALSE(isSeen(QStringLiteral("missingKeys")));
}

TEST_F(SidebarView, theButtonMakesAPictureAndTheStatusSaysSo)
{
    openWith({QStringLiteral("gemini")});
    click(QStringLiteral("promptEditor"));
    type(QStringLiteral("a lake"));
    EXPECT_FALSE(isSeen(QStringLiteral("status")));
    EXPECT_EQ(textOf(find(QStringLiteral("generateButton"))), QStringLiteral("Generate & Set Wallpaper"));
    click(QStringLiteral("generateButton"));
    EXPECT_EQ(textOf(find(QStringLiteral("generateButton"))), QStringLiteral("Generating..."));
    EXPECT_FALSE(find(QStringLiteral("generateButton"))->isEnabled());
    manager->waitUntilIdle();
    EXPECT_TRUE(isSeen(QStringLiteral("status")));
    EXPECT_EQ(textOf(find(QStringLiteral("status"))), QStringLiteral("Wallpaper set!"));
    EXPECT_EQ(find(QStringLiteral("statusSymbol"))->property("name"), QStringLiteral("checkmark.circle.fill"));
    EXPECT_GT(symbolColor().green(), symbolColor().red());
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("album a lake")); }));
}

TEST_F(SidebarView, aFailureLeavesARedTriangleWithWhatWentWrong)
{
    openWith({QStringLiteral("gemini")});
    service.setMisbehaviour(Misbehaviour(Misbehaviour::Kind::ErrorObject));
    click(QStringLiteral("promptEditor"));
    type(QStringLiteral("a lake"));
    click(QStringLiteral("generateButton"));
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->isError());
    EXPECT_NE(manager->status(), QString());
    EXPECT_EQ(textOf(find(QStringLiteral("status"))), manager->status());
    EXPECT_EQ(find(QStringLiteral("statusSymbol"))->property("name"), QStringLiteral("exclamationmark.triangle.fill"));
    EXPECT_GT(symbolColor().red(), symbolColor().green());
}

TEST_F(SidebarView, anEmptiedPromptDisablesTheButtonAndTheMenusLine)
{
    openWith({QStringLiteral("gemini")});
    window->setProperty("trayShown", false);
    const auto menuLine = [this] {
        click(QStringLiteral("menuButton"));
        EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("menuAuto")); }));
        const bool isEnabled = find(QStringLiteral("menuGenerate"))->isEnabled();
        QTest::keyClick(window, Qt::Key_Escape);
        EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("menuAuto")); }));
        return isEnabled;
    };
    click(QStringLiteral("promptEditor"));
    type(QStringLiteral("a"));
    EXPECT_TRUE(waitFor([&] { return find(QStringLiteral("generateButton"))->isEnabled(); }));
    EXPECT_TRUE(menuLine());
    click(QStringLiteral("promptEditor"));
    QTest::keyClick(window, Qt::Key_Backspace);
    EXPECT_EQ(manager->prompt(), QString());
    EXPECT_FALSE(find(QStringLiteral("generateButton"))->isEnabled());
    EXPECT_FALSE(menuLine());
}

TEST_F(SidebarView, theHintTellsWhatEnlargesWhereTheServiceDoesNot)
{
    openWith({QStringLiteral("gemini"), QStringLiteral("grok")});
    manager->setFourKEnabled(true);
    EXPECT_FALSE(isSeen(QStringLiteral("upscaleHint")));
    manager->setProviderOverride(QStringLiteral("grok"));
    EXPECT_EQ(textOf(find(QStringLiteral("upscaleHint"))), QStringLiteral("+ Gemini 4K"));
    EXPECT_TRUE(isSeen(QStringLiteral("upscaleHint")));
}

TEST_F(SidebarView, controlAndEnterGenerateFromTheEditor)
{
    openWith({QStringLiteral("gemini")});
    click(QStringLiteral("promptEditor"));
    type(QStringLiteral("a lake"));
    QTest::keyClick(window, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(manager->isLoading());
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 1);
    EXPECT_EQ(manager->prompt(), QStringLiteral("a lake"));
}

TEST_F(SidebarView, aMissingKeyIsNamedAndDisablesTheButton)
{
    store(SettingsKeys::kLastPrompt, QStringLiteral("a lake"));
    openWith({});
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("missingKeys")); }));
    EXPECT_FALSE(find(QStringLiteral("generateButton"))->isEnabled());
    manager->saveKey(QStringLiteral("KEY"), QStringLiteral("gemini"));
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("missingKeys")); }));
    EXPECT_TRUE(waitFor([&] { return find(QStringLiteral("generateButton"))->isEnabled(); }));
}

TEST_F(SidebarView, theScheduleShowsItsRowsOnlyWhileItIsOn)
{
    openWith({QStringLiteral("gemini")});
    EXPECT_FALSE(isSeen(QStringLiteral("intervalPicker")));
    click(QStringLiteral("autoToggle"));
    EXPECT_TRUE(manager->autoEnabled());
    EXPECT_TRUE(isSeen(QStringLiteral("intervalPicker")));
    EXPECT_TRUE(isSeen(QStringLiteral("nextFire")));
    click(QStringLiteral("autoToggle"));
    EXPECT_FALSE(manager->autoEnabled());
    EXPECT_FALSE(isSeen(QStringLiteral("intervalPicker")));
    EXPECT_FALSE(isSeen(QStringLiteral("nextFire")));
}

TEST_F(SidebarView, aSwitchFollowsTheManagerAfterItWasClicked)
{
    openWith({QStringLiteral("gemini")});
    click(QStringLiteral("fourKToggle"));
    EXPECT_TRUE(manager->fourKEnabled());
    manager->setFourKEnabled(false);
    EXPECT_FALSE(find(QStringLiteral("fourKToggle"))->property("checked").toBool());
}

TEST_F(SidebarView, tabLeavesTheEditorWithoutWritingIntoIt)
{
    openWith({QStringLiteral("gemini")});
    click(QStringLiteral("promptEditor"));
    QTest::keyClick(window, Qt::Key_Tab);
    EXPECT_TRUE(find(QStringLiteral("fourKToggle"))->hasActiveFocus());
    EXPECT_EQ(manager->prompt(), QString());
}

TEST_F(SidebarView, theMenuOfTheIconIsInTheWindowWhileNoPanelShowsIt)
{
    start();
    open();
    EXPECT_FALSE(isSeen(QStringLiteral("menuButton")));
    window->setProperty("trayShown", false);
    click(QStringLiteral("menuButton"));
    ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("menuAuto")); }));
    EXPECT_EQ(textOf(find(QStringLiteral("menuState"))), QStringLiteral("Idle"));
    EXPECT_FALSE(find(QStringLiteral("menuGenerate"))->isEnabled());
    click(QStringLiteral("menuAuto"));
    EXPECT_TRUE(manager->autoEnabled());

    QSignalSpy settings(window, SIGNAL(settingsRequested()));
    QSignalSpy quit(window, SIGNAL(quitRequested()));
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("menuAuto")); }));
    click(QStringLiteral("menuButton"));
    EXPECT_TRUE(waitFor([&] { return isReachable(QStringLiteral("menuAuto")); }));
    EXPECT_TRUE(find(QStringLiteral("menuAuto"))->property("checked").toBool());
    click(QStringLiteral("menuSettings"));
    EXPECT_EQ(settings.size(), 1);
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("menuAuto")); }));
    click(QStringLiteral("menuButton"));
    click(QStringLiteral("menuQuit"));
    EXPECT_EQ(quit.size(), 1);
    window->setProperty("trayShown", true);
    EXPECT_FALSE(isSeen(QStringLiteral("menuButton")));
}

} // namespace quorvane
