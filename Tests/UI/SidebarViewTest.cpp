#include "Manager/SettingsKeys.h"
#include "UI/ViewFixture.h"

#include <QClipboard>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quorvane {

class SidebarView : public ViewTest
{
  protected:
    void openWith(const QStringList &keys)
    {
        for (const QString &id : keys) {
            EXPECT_TRUE(Keychain::save(u"KEY"_s, id));
        }
        start();
        ASSERT_NE(open(), nullptr);
    }
    [[nodiscard]] QString promptOfNewest() const
    {
        const QJsonObject prompts = QJsonDocument::fromJson(sideFile("prompts.json")).object();
        return prompts[imageName(manager->history().value(0))].toString();
    }
    /// The smallest window, with everything shown that takes room, after a generation that failed with that message.
    void failInTheSmallestWindow(const QByteArray &message)
    {
        store(SettingsKeys::kLastPrompt, u"a lake"_s);
        store(SettingsKeys::kAutoEnabled, true);
        store(SettingsKeys::kFourKEnabled, true);
        openWith({u"gemini"_s});
        window->setProperty("trayShown", false);
        window->resize(window->minimumSize());
        Misbehaviour misbehaviour(Misbehaviour::Kind::ErrorObject);
        misbehaviour.text = message;
        service.setMisbehaviour(misbehaviour);
        manager->generateAndSet();
        manager->waitUntilIdle();
        ASSERT_TRUE(manager->isError());
        ASSERT_TRUE(waitFor([&] { return isSeen(u"status"_s) && window->height() == window->minimumHeight(); }));
    }
    [[nodiscard]] QColor symbolColor() const { return find(u"statusSymbol"_s)->property("color").value<QColor>(); }
};

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

TEST_F(SidebarView, whatIsBeingMadeCanBeCancelled)
{
    openWith({u"gemini"_s});
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    click(u"promptEditor"_s);
    type(u"a lake"_s);
    EXPECT_FALSE(isSeen(u"cancelButton"_s));
    click(u"generateButton"_s);
    click(u"cancelButton"_s);
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->status().startsWith("Cancelled."_L1)) << manager->status().toStdString();
    EXPECT_EQ(textOf(find(u"status"_s)), manager->status());
    EXPECT_FALSE(isSeen(u"cancelButton"_s));
    EXPECT_TRUE(find(u"generateButton"_s)->isEnabled());

    // And by Escape, with the keyboard in the status.
    click(u"generateButton"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"cancelButton"_s); }));
    find(u"cancelButton"_s)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Escape);
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->status().startsWith("Cancelled."_L1)) << manager->status().toStdString();
}

TEST_F(SidebarView, aFailureLeavesARedTriangleWithWhatWentWrong)
{
    openWith({u"gemini"_s});
    service.setMisbehaviour(Misbehaviour(Misbehaviour::Kind::ErrorObject));
    click(u"promptEditor"_s);
    type(u"a lake"_s);
    click(u"generateButton"_s);
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->isError());
    EXPECT_NE(manager->status(), QString());
    EXPECT_EQ(textOf(find(u"status"_s)), manager->status());
    EXPECT_EQ(find(u"statusSymbol"_s)->property("name"), u"exclamationmark.triangle.fill"_s);
    EXPECT_GT(symbolColor().red(), symbolColor().green());
}

TEST_F(SidebarView, theStatusIsSeenInTheSmallestWindowWithTheScheduleOn)
{
    failInTheSmallestWindow("the service is closed today");
    EXPECT_TRUE(isSeen(u"nextFire"_s));
    const QRectF status = placeOf(u"status"_s);
    EXPECT_GT(status.height(), 0);
    EXPECT_LT(status.bottom(), placeOf(u"menuButton"_s).top());
    EXPECT_GT(status.top(), 0);
    // What is above it scrolls, and follows the keyboard.
    find(u"intervalPicker"_s)->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_LT(placeOf(u"intervalPicker"_s).bottom(), status.top());
    find(u"promptEditor"_s)->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_GT(placeOf(u"promptEditor"_s).top(), 0);
}

TEST_F(SidebarView, aLongStatusLeavesTheKeyboardsPlaceInSight)
{
    failInTheSmallestWindow("short");
    find(u"generateButton"_s)->forceActiveFocus(Qt::TabFocusReason);
    Misbehaviour misbehaviour(Misbehaviour::Kind::ErrorObject);
    misbehaviour.text = QByteArray("one reason after another; ").repeated(60);
    service.setMisbehaviour(misbehaviour);
    manager->generateAndSet();
    manager->waitUntilIdle();
    ASSERT_TRUE(waitFor([&] { return placeOf(u"status"_s).height() > 200; }));
    EXPECT_TRUE(waitFor([&] { return placeOf(u"generateButton"_s).bottom() < placeOf(u"status"_s).top(); }));
}

TEST_F(SidebarView, aLongStatusIsReadToItsEndAndCopied)
{
    failInTheSmallestWindow(QByteArray("<b>one</b> reason after another; ").repeated(60) + "the end");
    QQuickItem *status = find(u"status"_s);
    EXPECT_EQ(textOf(status), manager->status());
    EXPECT_TRUE(manager->status().contains("<b>one</b>"_L1));
    EXPECT_EQ(status->property("textFormat").toInt(), 0) << "which is plain text";
    EXPECT_EQ(status->property("truncated").toBool(), false);
    // It scrolls in its place.
    const QQuickItem *place = find(u"statusPlace"_s);
    EXPECT_LT(place->height(), window->height() / 2);
    EXPECT_GT(placeOf(u"status"_s).bottom(), placeOf(u"statusPlace"_s).bottom());
    EXPECT_TRUE(waitFor([&] {
        turnWheelDown(middleOf(place));
        return placeOf(u"status"_s).bottom() <= placeOf(u"statusPlace"_s).bottom();
    }));

    QTest::mouseClick(window, Qt::LeftButton, {}, middleOf(place));
    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), manager->status());
}

TEST_F(SidebarView, whatWasNotKeptIsSaidBelowTheStatusAndCopied)
{
    store(SettingsKeys::kLastPrompt, u"a lake"_s);
    openWith({u"gemini"_s});
    manager->waitUntilIdle();
    EXPECT_FALSE(isSeen(u"problems"_s));
    ASSERT_TRUE(putFile(ImageStore::promptsPath(), "{"));
    manager->generateAndSet();
    manager->waitUntilIdle();
    ASSERT_EQ(manager->problems().size(), 1);
    ASSERT_TRUE(isSeen(u"problems"_s));
    EXPECT_EQ(textOf(find(u"problems"_s)), manager->problems().first());
    EXPECT_EQ(find(u"problems"_s)->property("textFormat").toInt(), 0) << "which is plain text";
    // The operation itself went well.
    EXPECT_EQ(find(u"statusSymbol"_s)->property("name"), u"checkmark.circle.fill"_s);
    EXPECT_TRUE(waitFor([&] { return placeOf(u"problems"_s).top() >= placeOf(u"status"_s).bottom(); }));
    click(u"problems"_s);
    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), manager->problems().first());
    manager->generateAndSet();
    manager->waitUntilIdle();
    EXPECT_FALSE(isSeen(u"problems"_s));
}

TEST_F(SidebarView, theFrameAroundTheStatusIsSeenWhole)
{
    failInTheSmallestWindow("the service is closed today");
    find(u"status"_s)->forceActiveFocus();
    const auto frame = [this] { return placeOf(u"status"_s).adjusted(-3, -3, 3, 3); };
    EXPECT_TRUE(waitFor([&] { return placeOf(u"statusPlace"_s).contains(frame()); }));
    // And not over the symbol beside it.
    EXPECT_GE(frame().left(), placeOf(u"statusSymbol"_s).right());
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
    EXPECT_TRUE(waitFor([&] { return window->activeFocusItem()->isVisible(); }));
    EXPECT_TRUE(window->activeFocusItem()->property("visualFocus").toBool()) << "and it is seen where";
    QTest::keyClick(window, Qt::Key_Space);
    EXPECT_FALSE(manager->nsfwEnabled());
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
