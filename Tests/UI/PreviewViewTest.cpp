#include "Manager/SettingsKeys.h"
#include "UI/ViewFixture.h"

#include <QClipboard>
#include <QMimeData>

#include <algorithm>
#include <cstdlib>

namespace quorvane {

class PreviewView : public ViewTest
{
  protected:
    /// Opens the newest of three pictures of one prompt.
    void openFirst()
    {
        for (const char *name : {"one.png", "two.png", "three.png"}) {
            (void)putPainting(QLatin1String(name), QStringLiteral("a lake"));
        }
        Keychain::save(QStringLiteral("KEY"), QStringLiteral("gemini"));
        start();
        open();
        click(QStringLiteral("album a lake"));
        click(QStringLiteral("tile ") + manager->history().first());
        ASSERT_TRUE(waitFor([&] { return isSeen(QStringLiteral("preview")); }));
    }
    [[nodiscard]] bool canGo(const char *side) const { return find(QLatin1String(side))->isEnabled(); }
};

TEST_F(PreviewView, itStepsThroughTheAlbumAndNothingElse)
{
    (void)putPainting(QStringLiteral("one.png"), QStringLiteral("a lake"));
    const QString hill = putPainting(QStringLiteral("two.png"), QStringLiteral("a hill"));
    (void)putPainting(QStringLiteral("three.png"), QStringLiteral("a sea"));
    start();
    open();
    click(QStringLiteral("album a hill"));
    click(QStringLiteral("tile ") + hill);
    ASSERT_TRUE(waitFor([&] { return isSeen(QStringLiteral("preview")); }));
    EXPECT_FALSE(canGo("leftButton"));
    EXPECT_FALSE(canGo("rightButton"));
    QTest::keyClick(window, Qt::Key_Right);
    QTest::keyClick(window, Qt::Key_Left);
    click(QStringLiteral("setButton"));
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
    click(QStringLiteral("rightButton"));
    EXPECT_FALSE(canGo("rightButton"));
    QTest::keyClick(window, Qt::Key_Right);
    EXPECT_FALSE(canGo("rightButton"));
    click(QStringLiteral("leftButton"));
    EXPECT_TRUE(canGo("rightButton"));
}

TEST_F(PreviewView, itsButtonsSetFavourAndUseThePrompt)
{
    openFirst();
    click(QStringLiteral("setButton"));
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), QStringList{manager->history().first()});
    EXPECT_EQ(textOf(find(QStringLiteral("favoriteButton"))), QStringLiteral("Favorite"));
    click(QStringLiteral("favoriteButton"));
    EXPECT_EQ(textOf(find(QStringLiteral("favoriteButton"))), QStringLiteral("Unfavorite"));
    EXPECT_EQ(manager->favorites().size(), 1);
    click(QStringLiteral("previewUsePromptButton"));
    EXPECT_EQ(manager->prompt(), QStringLiteral("a lake"));
    EXPECT_EQ(textOf(find(QStringLiteral("promptEditor"))), QStringLiteral("a lake"));
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("preview")); }));
}

TEST_F(PreviewView, anEnlargedPictureTakesThePlaceOfItsOriginal)
{
    service.setPictureMaker([](const QString &, QSize) { return paintPicture(QStringLiteral("4K"), {640, 400}); });
    store(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    localUpscale = [](QByteArray image, std::stop_token,
                      std::function<void(UpscaleProgress)> progress) -> QCoro::Task<UpscaledImage> {
        progress({1, 4, std::chrono::seconds(90)});
        co_return UpscaledImage{image, QStringLiteral("png")};
    };
    openFirst();
    ASSERT_TRUE(waitFor([&] { return isSeen(QStringLiteral("upscaleButton")); }));
    EXPECT_FALSE(isSeen(QStringLiteral("originalButton")));
    click(QStringLiteral("upscaleButton"));
    EXPECT_TRUE(isSeen(QStringLiteral("upscalingNotice")));
    EXPECT_FALSE(isSeen(QStringLiteral("upscaleButton")));
    manager->waitUntilIdle();
    EXPECT_FALSE(isSeen(QStringLiteral("upscalingNotice")));
    ASSERT_TRUE(waitFor([&] { return isSeen(QStringLiteral("originalButton")); }));
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("upscaleButton")); }));
    click(QStringLiteral("originalButton"));
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("originalButton")); }));
}

TEST_F(PreviewView, theCloseButtonCloses)
{
    openFirst();
    click(QStringLiteral("closeButton"));
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("preview")); }));
}

TEST_F(PreviewView, itsKeysWorkWhateverHasTheFocus)
{
    openFirst();
    click(QStringLiteral("promptEditor"));
    type(QStringLiteral("ab"));
    QTest::keyClick(window, Qt::Key_Right);
    EXPECT_TRUE(canGo("leftButton"));
    QTest::keyClick(window, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_FALSE(canGo("leftButton"));
    // Other keys stay with the editor, and its cursor where it was.
    type(QStringLiteral("c"));
    EXPECT_EQ(manager->prompt(), QStringLiteral("abc"));
    click(QStringLiteral("fourKToggle"));
    QTest::keyClick(window, Qt::Key_Right);
    EXPECT_TRUE(canGo("leftButton"));
    click(QStringLiteral("promptEditor"));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("preview")); }));
    // The gallery's album is still open: the preview took that key alone.
    EXPECT_TRUE(isSeen(QStringLiteral("albumsButton")));
}

TEST_F(PreviewView, withoutItTheEditorHasItsArrows)
{
    openFirst();
    QTest::keyClick(window, Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("preview")); }));
    click(QStringLiteral("promptEditor"));
    type(QStringLiteral("ab"));
    QTest::keyClick(window, Qt::Key_Left);
    type(QStringLiteral("c"));
    EXPECT_EQ(manager->prompt(), QStringLiteral("acb"));
}

TEST_F(PreviewView, aListThatHasDroppedDownKeepsItsKeys)
{
    openFirst();
    manager->setAutoEnabled(true);
    click(QStringLiteral("intervalPicker"));
    const auto *list = find(QStringLiteral("intervalPicker"))->property("popup").value<QObject *>();
    ASSERT_TRUE(waitFor([&] { return list->property("visible").toBool(); }));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !list->property("visible").toBool(); }));
    EXPECT_TRUE(find(QStringLiteral("preview"))->isEnabled());
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_FALSE(find(QStringLiteral("preview"))->isEnabled());
}

TEST_F(PreviewView, itsContextMenuCopiesThePictureThatIsShown)
{
    openFirst();
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(find(QStringLiteral("previewPicture"))));
    click(QStringLiteral("menuCopy"));
    const QList<QUrl> copied = QGuiApplication::clipboard()->mimeData()->urls();
    EXPECT_EQ(copied, QList<QUrl>{QUrl::fromLocalFile(manager->history().first())});
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("menuCopy")); }));
    QTest::keyClick(window, Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("menuCopy")); }));
    // What the preview's buttons offer is not said twice.
    EXPECT_FALSE(isSeen(QStringLiteral("menuDelete")));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("menuCopy")); }));
    EXPECT_TRUE(isSeen(QStringLiteral("preview")));
}

TEST_F(PreviewView, buttonsThatDoNotFitOnOneLineAreInTheMiddleOfTheNext)
{
    openFirst();
    window->setWidth(760);
    const auto y = [&](const char *name) { return middleOf(find(QLatin1String(name))).y(); };
    ASSERT_TRUE(waitFor([&] { return y("fullScreenButton") > y("setButton"); }));
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
    for (const char *line : {"setButton", "fullScreenButton"}) {
        EXPECT_TRUE(waitFor([&] { return std::abs(middleOfLine(y(line)) - kMiddle) <= 5; }))
            << line << ' ' << middleOfLine(y(line));
    }
}

} // namespace quorvane
