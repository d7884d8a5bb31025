#include "Manager/SettingsKeys.h"
#include "UI/ViewFixture.h"
#include "demo-service/Painter/Painter.h"

#include <QClipboard>
#include <QMimeData>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quorvane {

class PreviewView : public ViewTest
{
  protected:
    /// Opens the newest of three pictures of one prompt.
    void openFirst()
    {
        for (const char *name : {"one.png", "two.png", "three.png"}) {
            (void)putPainting(QLatin1String(name), u"a lake"_s);
        }
        EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
        start();
        open();
        click(u"album a lake"_s);
        click(u"tile "_s + manager->history().first());
        ASSERT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
    }
    [[nodiscard]] bool canGo(const char *side) const { return find(QLatin1String(side))->isEnabled(); }
};

TEST_F(PreviewView, itStepsThroughTheAlbumAndNothingElse)
{
    (void)putPainting(u"one.png"_s, u"a lake"_s);
    const QString hill = putPainting(u"two.png"_s, u"a hill"_s);
    (void)putPainting(u"three.png"_s, u"a sea"_s);
    start();
    open();
    click(u"album a hill"_s);
    click(u"tile "_s + hill);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
    EXPECT_FALSE(canGo("leftButton"));
    EXPECT_FALSE(canGo("rightButton"));
    QTest::keyClick(window, Qt::Key_Right);
    QTest::keyClick(window, Qt::Key_Left);
    click(u"setButton"_s);
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), QStringList{hill});
}

TEST_F(PreviewView, arrowsStepThroughTheListAndStopAtItsEnds)
{
    openFirst();
    EXPECT_FALSE(canGo("leftButton"));
    QTest::keyClick(window, Qt::Key_Left);
    EXPECT_TRUE(canGo("rightButton"));
    QTest::keyClick(window, Qt::Key_Right);
    EXPECT_TRUE(canGo("leftButton"));
    click(u"rightButton"_s);
    EXPECT_FALSE(canGo("rightButton"));
    QTest::keyClick(window, Qt::Key_Right);
    EXPECT_FALSE(canGo("rightButton"));
    click(u"leftButton"_s);
    EXPECT_TRUE(canGo("rightButton"));
}

TEST_F(PreviewView, itsButtonsSetFavourAndUseThePrompt)
{
    openFirst();
    click(u"setButton"_s);
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), QStringList{manager->history().first()});
    EXPECT_EQ(textOf(find(u"favoriteButton"_s)), u"Favorite"_s);
    click(u"favoriteButton"_s);
    EXPECT_EQ(textOf(find(u"favoriteButton"_s)), u"Unfavorite"_s);
    EXPECT_EQ(manager->favorites().size(), 1);
    click(u"previewUsePromptButton"_s);
    EXPECT_EQ(manager->prompt(), u"a lake"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a lake"_s);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
    EXPECT_TRUE(find(u"promptEditor"_s)->hasActiveFocus()) << "where it can be changed";
}

TEST_F(PreviewView, anEnlargedPictureTakesThePlaceOfItsOriginal)
{
    service.setPictureMaker([](const QString &, QSize) { return paintPicture(u"4K"_s, {640, 400}); });
    store(SettingsKeys::kUpscaleMethod, u"local"_s);
    localUpscale = [](QByteArray image, std::stop_token,
                      std::function<void(UpscaleProgress)> progress) -> QCoro::Task<EncodedImage> {
        progress({1, 4, std::chrono::seconds(90)});
        co_return EncodedImage{image, u"png"_s};
    };
    openFirst();
    ASSERT_TRUE(waitFor([&] { return isSeen(u"upscaleButton"_s); }));
    EXPECT_FALSE(isSeen(u"originalButton"_s));
    click(u"upscaleButton"_s);
    EXPECT_TRUE(isSeen(u"upscalingNotice"_s));
    EXPECT_FALSE(isSeen(u"upscaleButton"_s));
    manager->waitUntilIdle();
    EXPECT_FALSE(isSeen(u"upscalingNotice"_s));
    ASSERT_TRUE(waitFor([&] { return isSeen(u"originalButton"_s); }));
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"upscaleButton"_s); }));
    click(u"originalButton"_s);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"originalButton"_s); }));
}

TEST_F(PreviewView, aButtonThatGoesGivesTheKeyboardToThePicture)
{
    store(SettingsKeys::kUpscaleMethod, u"local"_s);
    openFirst();
    ASSERT_TRUE(waitFor([&] { return isReachable(u"upscaleButton"_s); }));
    find(u"upscaleButton"_s)->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Space);
    ASSERT_TRUE(waitFor([&] { return !isSeen(u"upscaleButton"_s); }));
    EXPECT_TRUE(waitFor([&] { return window->activeFocusItem()->isVisible(); }));
    EXPECT_TRUE(find(u"preview"_s)->hasActiveFocus() || find(u"preview"_s)->property("activeFocus").toBool());
    manager->waitUntilIdle();
}

TEST_F(PreviewView, noButtonMovesWhenAnotherGoes)
{
    store(SettingsKeys::kUpscaleMethod, u"local"_s);
    openFirst();
    window->resize(1200, 800);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"upscaleButton"_s) && placeOf(u"setButton"_s).top() > 700; }));
    const auto places = [&] {
        QList<QRectF> all;
        for (const char *name : {"setButton", "favoriteButton", "fullScreenButton", "previewUsePromptButton"}) {
            all.append(placeOf(QLatin1String(name)));
        }
        return all;
    };
    const QPoint pressed = middleOf(find(u"upscaleButton"_s));
    const QList<QRectF> before = places();
    const QString prompt = manager->prompt();
    QTest::mouseClick(window, Qt::LeftButton, {}, pressed);
    ASSERT_TRUE(waitFor([&] { return !isSeen(u"upscaleButton"_s); }));
    EXPECT_EQ(places(), before);
    manager->waitUntilIdle();
    click(u"favoriteButton"_s);
    EXPECT_EQ(places(), before);
}

TEST_F(PreviewView, theCloseButtonCloses)
{
    openFirst();
    click(u"closeButton"_s);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
}

TEST_F(PreviewView, aButtonThatWasClickedDoesNotKeepTheKeyboard)
{
    openFirst();
    click(u"closeButton"_s);
    ASSERT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
    click(u"tile "_s + manager->history().first());
    ASSERT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
    QTest::keyClick(window, Qt::Key_Space);
    EXPECT_TRUE(find(u"preview"_s)->isEnabled());
    click(u"favoriteButton"_s);
    QTest::keyClick(window, Qt::Key_Space);
    EXPECT_EQ(manager->favorites().size(), 1);
    QTest::keyClick(window, Qt::Key_Escape);
    // Also when a key has closed it.
    ASSERT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
    click(u"tile "_s + manager->history().first());
    ASSERT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
    QTest::keyClick(window, Qt::Key_Space);
    EXPECT_TRUE(find(u"preview"_s)->isEnabled());
}

TEST_F(PreviewView, itsKeysWorkWhateverHasTheFocus)
{
    openFirst();
    click(u"promptEditor"_s);
    type(u"ab"_s);
    QTest::keyClick(window, Qt::Key_Right);
    EXPECT_TRUE(canGo("leftButton"));
    QTest::keyClick(window, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_FALSE(canGo("leftButton"));
    // Other keys stay with the editor, and its cursor where it was.
    type(u"c"_s);
    EXPECT_EQ(manager->prompt(), u"abc"_s);
    click(u"fourKToggle"_s);
    QTest::keyClick(window, Qt::Key_Right);
    EXPECT_TRUE(canGo("leftButton"));
    click(u"promptEditor"_s);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
    // The gallery's album is still open: the preview took that key alone.
    EXPECT_TRUE(isSeen(u"albumsButton"_s));
}

TEST_F(PreviewView, withoutItTheEditorHasItsArrows)
{
    openFirst();
    QTest::keyClick(window, Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
    click(u"promptEditor"_s);
    type(u"ab"_s);
    QTest::keyClick(window, Qt::Key_Left);
    type(u"c"_s);
    EXPECT_EQ(manager->prompt(), u"acb"_s);
}

TEST_F(PreviewView, aListThatHasDroppedDownKeepsItsKeys)
{
    openFirst();
    manager->setAutoEnabled(true);
    click(u"intervalPicker"_s);
    const auto *list = find(u"intervalPicker"_s)->property("popup").value<QObject *>();
    ASSERT_TRUE(waitFor([&] { return list->property("visible").toBool(); }));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !list->property("visible").toBool(); }));
    EXPECT_TRUE(find(u"preview"_s)->isEnabled());
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(find(u"preview"_s)->isEnabled());
}

TEST_F(PreviewView, itsContextMenuCopiesThePictureThatIsShown)
{
    openFirst();
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(find(u"previewPicture"_s)));
    click(u"menuCopy"_s);
    const QList<QUrl> copied = QGuiApplication::clipboard()->mimeData()->urls();
    EXPECT_EQ(copied, QList<QUrl>{QUrl::fromLocalFile(manager->history().first())});
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"menuCopy"_s); }));
    QTest::keyClick(window, Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"menuCopy"_s); }));
    // What the preview's buttons offer is not said twice.
    EXPECT_FALSE(isSeen(u"menuDelete"_s));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"menuCopy"_s); }));
    EXPECT_TRUE(isSeen(u"preview"_s));
}

TEST_F(PreviewView, theWholePromptIsShownOnDemandAndCanBeCopied)
{
    const QString prompt = u"a quiet mountain lake at dawn with mist "_s.repeated(60).trimmed() + u" and the end"_s;
    const QString path = putPainting(u"one.png"_s, prompt);
    start();
    open();
    click(u"album "_s + prompt);
    click(u"tile "_s + path);
    click(u"previewPrompt"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"copyPromptButton"_s); }));
    EXPECT_EQ(textOf(find(u"wholePrompt"_s)), prompt);
    // Its end can be scrolled to.
    QTest::keyClick(window, Qt::Key_End, Qt::ControlModifier);
    const auto endIsSeen = [&] {
        const QQuickItem *text = find(u"wholePrompt"_s);
        const QQuickItem *copy = find(u"copyPromptButton"_s);
        return text->mapToScene({0, text->height()}).y() <= copy->mapToScene({0, 0}).y();
    };
    EXPECT_TRUE(waitFor(endIsSeen));
    // The arrows move in the text now, and Escape leaves the preview open.
    QTest::keyClick(window, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(window, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"d"_s);
    QTest::keyClick(window, Qt::Key_Right);
    click(u"copyPromptButton"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), prompt);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"wholePrompt"_s); }));
    EXPECT_TRUE(find(u"preview"_s)->isEnabled());
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(find(u"preview"_s)->isEnabled());
}

TEST_F(PreviewView, theKeyboardOpensTheWholePrompt)
{
    openFirst();
    ASSERT_TRUE(waitFor([&] { return isReachable(u"previewPrompt"_s); }));
    find(u"previewPrompt"_s)->forceActiveFocus();
    QTest::keyClick(window, Qt::Key_Space);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"wholePrompt"_s) && find(u"wholePrompt"_s)->hasActiveFocus(); }));
    QTest::keyClick(window, Qt::Key_Tab);
    EXPECT_TRUE(find(u"copyPromptButton"_s)->hasActiveFocus());
}

TEST_F(PreviewView, returnAndEnterOpenTheWholePromptToo)
{
    openFirst();
    ASSERT_TRUE(waitFor([&] { return isReachable(u"previewPrompt"_s); }));
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        find(u"previewPrompt"_s)->forceActiveFocus();
        // A press that is held since something else had the keyboard is not meant for it.
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(window, &repeated);
        EXPECT_FALSE(isSeen(u"wholePrompt"_s)) << key;
        QTest::keyClick(window, key);
        ASSERT_TRUE(waitFor([&] { return isReachable(u"wholePrompt"_s) && find(u"wholePrompt"_s)->hasActiveFocus(); }));
        QTest::keyClick(window, Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return !isSeen(u"wholePrompt"_s); }));
    }
}

TEST_F(PreviewView, tabReachesItsButtonsFromThePicture)
{
    openFirst();
    ASSERT_TRUE(waitFor([&] { return isReachable(u"upscaleButton"_s) && isReachable(u"previewPrompt"_s); }));
    const QStringList stops = tabStops();
    const QStringList own{u"closeButton"_s,    u"rightButton"_s,      u"previewPrompt"_s,          u"setButton"_s,
                          u"favoriteButton"_s, u"fullScreenButton"_s, u"previewUsePromptButton"_s, u"upscaleButton"_s};
    EXPECT_EQ(stops.mid(0, own.size()), own) << stops.join(u", "_s).toStdString();
    // What it covers is not reached.
    for (const QString &stop : stops) {
        EXPECT_FALSE(stop.startsWith(u"tile "_s) || stop == "albumsButton"_L1 || stop == "?"_L1) << stop.toStdString();
    }
}

TEST_F(PreviewView, aKeyThatIsHeldMakesOneFavorite)
{
    openFirst();
    hold(Qt::Key_F, 5);
    EXPECT_EQ(manager->favorites().size(), 1);
    hold(Qt::Key_F, 4);
    EXPECT_EQ(manager->favorites().size(), 0);
}

TEST_F(PreviewView, buttonsThatDoNotFitOnOneLineAreInTheMiddleOfTheNext)
{
    openFirst();
    window->setWidth(760);
    const auto y = [&](const char *name) { return middleOf(find(QLatin1String(name))).y(); };
    ASSERT_TRUE(waitFor([&] { return y("previewUsePromptButton") > y("setButton"); }));
    // The gallery's middle, beside 280 points of sidebar.
    constexpr int kMiddle = 280 + (760 - 280) / 2;
    const auto middleOfLine = [&](int line) {
        int left = 760;
        int right = 0;
        for (const char *name :
             {"setButton", "favoriteButton", "previewUsePromptButton", "upscaleButton", "fullScreenButton"}) {
            const QQuickItem *button = find(QLatin1String(name));
            if (button->isVisible() && y(name) == line) {
                left = std::min(left, int(button->mapToScene({0, 0}).x()));
                right = std::max(right, int(button->mapToScene({button->width(), 0}).x()));
            }
        }
        return (left + right) / 2;
    };
    for (const char *line : {"setButton", "previewUsePromptButton"}) {
        EXPECT_TRUE(waitFor([&] { return std::abs(middleOfLine(y(line)) - kMiddle) <= 5; }))
            << line << ' ' << middleOfLine(y(line));
    }
}

} // namespace quorvane
