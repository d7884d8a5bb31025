#include "UI/SidebarViewFixture.h"

#include <QClipboard>

using namespace Qt::StringLiterals;

namespace quorvane {

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
    EXPECT_EQ(find(u"statusSymbol"_s)->property("name"), u"xmark.circle.fill"_s) << "no sign of success";
    manager->setWallpaper(putPainting(u"one.png"_s, u"a lake"_s));
    manager->waitUntilIdle();
    EXPECT_EQ(find(u"statusSymbol"_s)->property("name"), u"checkmark.circle.fill"_s) << manager->status().toStdString();
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

} // namespace quorvane
