#include "UI/SidebarViewFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(SidebarView, atTheStartTheKeyboardIsAtThePrompt)
{
    openWith({u"gemini"_s});
    type(u"a lake"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a lake"_s);
    EXPECT_EQ(manager->prompt(), u"a lake"_s);
}

TEST_F(SidebarView, aPromptFromOutsideIsShownAtOnceAndIsWhatIsGenerated)
{
    openWith({u"gemini"_s});
    EXPECT_FALSE(find(u"generateButton"_s)->isEnabled());
    manager->setPrompt(u"a hill"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a hill"_s);
    EXPECT_TRUE(waitFor([&] { return find(u"generateButton"_s)->isEnabled(); }));
    manager->setPrompt(u"a moor"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a moor"_s);
    click(u"generateButton"_s);
    manager->waitUntilIdle();
    EXPECT_EQ(promptOfNewest(), u"a moor"_s);
    manager->setPrompt(QString());
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), QString());
    EXPECT_FALSE(find(u"generateButton"_s)->isEnabled());
}

TEST_F(SidebarView, whatIsBeingTypedWinsOverAPromptFromOutside)
{
    openWith({u"gemini"_s});
    click(u"promptEditor"_s);
    type(u"a lake"_s);
    manager->setPrompt(u"a hill"_s);
    manager->generateAndSet();
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a lake"_s);
    manager->waitUntilIdle();
    // Who asked for another picture got it, and the next one is again what the editor shows.
    EXPECT_EQ(promptOfNewest(), u"a hill"_s);
    EXPECT_TRUE(waitFor([&] { return manager->prompt() == "a lake"_L1; }));
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a lake"_s);
    QTest::keyClick(window, Qt::Key_Return, Qt::ControlModifier);
    manager->waitUntilIdle();
    EXPECT_EQ(promptOfNewest(), u"a lake"_s);
    // It has been used now.
    manager->setPrompt(u"a moor"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a moor"_s);
}

TEST_F(SidebarView, whatWasTypedGivesWayOnceTheKeyboardIsElsewhere)
{
    openWith({u"gemini"_s});
    click(u"promptEditor"_s);
    type(u"a lake"_s);
    QTest::keyClick(window, Qt::Key_Tab);
    manager->setPrompt(u"a hill"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a hill"_s);
    // Only what is written from now on counts.
    click(u"promptEditor"_s);
    manager->setPrompt(u"a moor"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a moor"_s);
}

TEST_F(SidebarView, aPromptThatAnEditorWouldChangeIsKeptToTheLetter)
{
    openWith({u"gemini"_s});
    const QString prompt = u"a\u00a0lake\r\nat dawn"_s;
    manager->setPrompt(prompt);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a lake\nat dawn"_s);
    EXPECT_EQ(manager->prompt(), prompt);
}

TEST_F(SidebarView, controlAndZBringBackWhatUsePromptReplaced)
{
    (void)putPainting(u"hill.png"_s, u"a hill"_s);
    store(SettingsKeys::kLastPrompt, u"a "_s);
    openWith({u"gemini"_s});
    QTest::keyClick(window, Qt::Key_End);
    type(u"lake"_s);
    click(u"album a hill"_s);
    click(u"usePromptButton"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a hill"_s);
    EXPECT_EQ(manager->prompt(), u"a hill"_s);
    // The keyboard is there already. What is typed behind it is a step of its own.
    ASSERT_TRUE(waitFor([&] { return find(u"promptEditor"_s)->hasActiveFocus(); }));
    QTest::keyClick(window, Qt::Key_End);
    type(u"s"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a hills"_s);
    QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a hill"_s);
    QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a lake"_s);
    EXPECT_EQ(manager->prompt(), u"a lake"_s);
    // And no further than to the beginning.
    for (int step = 0; step < 10; ++step) {
        QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a "_s);
}

TEST_F(SidebarView, whatIsTypedBecomesThePromptAndEnablesTheButton)
{
    openWith({u"gemini"_s});
    EXPECT_FALSE(find(u"generateButton"_s)->isEnabled());
    click(u"promptEditor"_s);
    type(u"a lake"_s);
    EXPECT_EQ(manager->prompt(), u"a lake"_s);
    EXPECT_TRUE(find(u"generateButton"_s)->isEnabled());
    EXPECT_FALSE(isSeen(u"missingKeys"_s));
}

} // namespace quorvane
