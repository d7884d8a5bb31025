#include "UI/SidebarViewFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(SidebarView, tabLeavesTheEditorWithoutWritingIntoIt)
{
    openWith({u"gemini"_s});
    click(u"promptEditor"_s);
    QTest::keyClick(window, Qt::Key_Tab);
    EXPECT_TRUE(find(u"fourKToggle"_s)->hasActiveFocus());
    EXPECT_EQ(manager->prompt(), QString());
}

TEST_F(SidebarView, tabReachesEverythingAtTheFirstStartWithoutATray)
{
    start();
    ASSERT_NE(open(), nullptr);
    window->setProperty("trayShown", false);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"menuButton"_s) && isSeen(u"missingKeys"_s); }));
    EXPECT_EQ(tabStops(),
              (QStringList{u"fourKToggle"_s, u"nsfwToggle"_s, u"autoToggle"_s, u"menuButton"_s, u"promptEditor"_s}));
}

TEST_F(SidebarView, tabReachesEverythingOfAFullWindow)
{
    (void)putPainting(u"hill.png"_s, u"a hill"_s);
    failInTheSmallestWindow("the service is closed today");
    ASSERT_TRUE(waitFor([&] { return isSeen(u"album a hill"_s); }));
    find(u"promptEditor"_s)->forceActiveFocus();
    EXPECT_EQ(tabStops(),
              (QStringList{u"fourKToggle"_s, u"nsfwToggle"_s, u"generateButton"_s, u"autoToggle"_s, u"intervalPicker"_s,
                           u"status"_s, u"menuButton"_s, u"album a hill"_s, u"promptEditor"_s}));
    QStringList back;
    for (int step = 0; step < 3; ++step) {
        QTest::keyClick(window, Qt::Key_Backtab);
        back.append(window->activeFocusItem()->objectName());
    }
    EXPECT_EQ(back, (QStringList{u"promptEditor"_s, u"album a hill"_s, u"menuButton"_s}));
}

TEST_F(SidebarView, spaceReturnAndEnterPressEveryButton)
{
    store(SettingsKeys::kLastPrompt, u"a lake"_s);
    openWith({u"gemini"_s});
    window->setProperty("trayShown", false);
    ASSERT_TRUE(waitFor([&] { return find(u"generateButton"_s)->isEnabled(); }));
    bool isOn = false;
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        find(u"fourKToggle"_s)->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(window, key);
        isOn = !isOn;
        EXPECT_EQ(manager->fourKEnabled(), isOn) << key;

        find(u"generateButton"_s)->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(window, key);
        EXPECT_TRUE(manager->isLoading()) << key;
        manager->waitUntilIdle();
        ASSERT_TRUE(waitFor([&] { return find(u"generateButton"_s)->isEnabled(); }));

        find(u"menuButton"_s)->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(window, key);
        ASSERT_TRUE(waitFor([&] { return isReachable(u"menuAuto"_s); })) << key;
        const bool wasAuto = manager->autoEnabled();
        // The second that can be chosen, after "Generate Now".
        QTest::keyClick(window, Qt::Key_Down);
        QTest::keyClick(window, Qt::Key_Down);
        EXPECT_TRUE(waitFor([&] { return find(u"menuAuto"_s)->property("highlighted").toBool(); }));
        QTest::keyClick(window, key);
        EXPECT_NE(manager->autoEnabled(), wasAuto) << key;
        EXPECT_TRUE(waitFor([&] { return !isSeen(u"menuAuto"_s); }));

        manager->setAutoEnabled(true);
        find(u"intervalPicker"_s)->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(window, key);
        EXPECT_TRUE(find(u"intervalPicker"_s)->property("down").toBool()) << key;
        QTest::keyClick(window, Qt::Key_Down);
        QTest::keyClick(window, key);
        EXPECT_FALSE(find(u"intervalPicker"_s)->property("down").toBool()) << key;
        manager->setAutoEnabled(false);
    }
}

TEST_F(SidebarView, whatIsSeenNoMoreGivesTheKeyboardAway)
{
    openWith({u"gemini"_s});
    manager->setAutoEnabled(true);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"intervalPicker"_s); }));
    find(u"intervalPicker"_s)->forceActiveFocus(Qt::TabFocusReason);
    manager->setAutoEnabled(false);
    EXPECT_TRUE(waitFor([&] { return window->activeFocusItem()->isVisible(); }));
    QTest::keyClick(window, Qt::Key_Down);
    EXPECT_EQ(manager->intervalMinutes(), 30);

    find(u"nsfwToggle"_s)->forceActiveFocus(Qt::TabFocusReason);
    manager->setProviderOverride(u"gemini"_s);
    ASSERT_TRUE(waitFor([&] { return !isSeen(u"nsfwToggle"_s); }));
    // And not to a button, least of all to one that costs, nor to the prompt.
    const QString prompt = manager->prompt();
    EXPECT_TRUE(waitFor([&] { return window->activeFocusItem()->isVisible(); }));
    QTest::keyClick(window, Qt::Key_Space);
    EXPECT_EQ(manager->prompt(), prompt);
    EXPECT_FALSE(manager->nsfwEnabled());
    EXPECT_FALSE(manager->isLoading());
    EXPECT_FALSE(manager->autoEnabled());
}

TEST_F(SidebarView, theKeyboardComesBackFromTheMenu)
{
    openWith({u"gemini"_s});
    window->setProperty("trayShown", false);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"menuButton"_s); }));
    find(u"menuButton"_s)->forceActiveFocus(Qt::TabFocusReason);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        QTest::keyClick(window, Qt::Key_Space);
        ASSERT_TRUE(waitFor([&] { return isReachable(u"menuAuto"_s); }));
        find(u"menuAuto"_s)->forceActiveFocus(Qt::TabFocusReason);
        QTest::keyClick(window, key);
        ASSERT_TRUE(waitFor([&] { return !isSeen(u"menuAuto"_s); }));
        EXPECT_TRUE(waitFor([&] { return find(u"menuButton"_s)->property("visualFocus").toBool(); })) << key;
    }
}

TEST_F(SidebarView, controlAndWCloseTheWindow)
{
    openWith({});
    QTest::keyClick(window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
}

} // namespace quorvane
