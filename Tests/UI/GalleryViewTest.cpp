#include "UI/ViewFixture.h"

#include <QClipboard>
#include <QMimeData>

namespace quorvane {

using GalleryView = ViewTest;

TEST_F(GalleryView, anEmptyLibrarySaysWhatToDo)
{
    start();
    open();
    EXPECT_TRUE(isSeen(QStringLiteral("emptyState")));
    EXPECT_FALSE(isSeen(QStringLiteral("albumGrid")));
}

TEST_F(GalleryView, anAlbumOpensItsPicturesAndAPictureOpensThePreview)
{
    const QString path = putPainting(QStringLiteral("one.png"), QStringLiteral("a lake"));
    start();
    open();
    click(QStringLiteral("album a lake"));
    EXPECT_EQ(textOf(find(QStringLiteral("albumTitle"))), QStringLiteral("a lake"));
    click(QStringLiteral("tile ") + path);
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("preview")); }));
    EXPECT_TRUE(waitFor([&] { return find(QStringLiteral("previewPicture"))->property("status").toInt() == 1; }));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("preview")); }));
    click(QStringLiteral("albumsButton"));
    EXPECT_TRUE(isSeen(QStringLiteral("albumGrid")));
}

TEST_F(GalleryView, theAlbumsPromptCanBeUsedUnlessItIsNone)
{
    const QString known = putPainting(QStringLiteral("one.png"), QStringLiteral("a lake"));
    const QString unknown = putPainting(QStringLiteral("two.png"), QString());
    start().toggleFavorite(known);
    open();
    for (const char *special : {"Favorites", "Uncategorized"}) {
        click(QStringLiteral("album ") + QLatin1String(special));
        EXPECT_FALSE(isSeen(QStringLiteral("usePromptButton"))) << special;
        click(QStringLiteral("albumsButton"));
    }
    click(QStringLiteral("album a lake"));
    click(QStringLiteral("usePromptButton"));
    EXPECT_EQ(manager->prompt(), QStringLiteral("a lake"));
    EXPECT_EQ(textOf(find(QStringLiteral("promptEditor"))), QStringLiteral("a lake"));
}

TEST_F(GalleryView, theActionsOfATileAppearUnderThePointerButNeverTheTrash)
{
    const QString path = putPainting(QStringLiteral("one.png"), QStringLiteral("a lake"));
    start();
    open();
    click(QStringLiteral("album a lake"));
    ASSERT_TRUE(waitFor([&] { return isSeen(QStringLiteral("tile ") + path); }));
    const QQuickItem *tile = find(QStringLiteral("tile ") + path);
    EXPECT_TRUE(waitFor([&] { return tile->width() >= 220; }));
    // The pointer comes in anywhere: a grid of places over the whole tile.
    for (int x = 4; x < 220; x += 24) {
        for (int y = 4; y < 170; y += 16) {
            hover(QPoint(2, 2));
            ASSERT_FALSE(isSeen(QStringLiteral("trash")));
            const QPoint place = tile->mapToScene(QPointF(x, y)).toPoint();
            hover(place);
            ASSERT_TRUE(isSeen(QStringLiteral("trash"))) << x << ' ' << y;
            const QQuickItem *trash = find(QStringLiteral("trash"));
            ASSERT_FALSE(trash->contains(trash->mapFromScene(place))) << x << ' ' << y;
        }
    }
}

TEST_F(GalleryView, aTileAppliesFavoursAndDeletes)
{
    const QString path = putPainting(QStringLiteral("one.png"), QStringLiteral("a lake"));
    const QString kept = putPainting(QStringLiteral("two.png"), QStringLiteral("a hill"));
    start();
    open();
    click(QStringLiteral("album a lake"));
    ASSERT_TRUE(waitFor([&] { return isSeen(QStringLiteral("tile ") + path); }));
    hover(middleOf(find(QStringLiteral("tile ") + path)));
    click(QStringLiteral("apply"));
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), QStringList{path});
    EXPECT_FALSE(isSeen(QStringLiteral("preview")));

    click(QStringLiteral("star"));
    EXPECT_TRUE(manager->favorites().contains(QStringLiteral("one.png")));
    click(QStringLiteral("trash"));
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history(), QStringList{kept});
    // The album is gone, and with it its page.
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("albumGrid")); }));
}

TEST_F(GalleryView, keysOpenMoveFavourAndDelete)
{
    const QString older = putPainting(QStringLiteral("one.png"), QStringLiteral("a lake"));
    const QString newer = putPainting(QStringLiteral("two.png"), QStringLiteral("a lake"));
    start();
    open();
    ASSERT_TRUE(waitFor([&] { return isSeen(QStringLiteral("album a lake")); }));
    find(QStringLiteral("albumGrid"))->forceActiveFocus();
    QTest::keyClick(window, Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("imageGrid"))->hasActiveFocus(); }));
    const QString first = manager->history().first();
    const QString second = manager->history().last();
    ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("tile ") + second); }));
    QTest::keyClick(window, Qt::Key_Right);
    QTest::keyClick(window, Qt::Key_F);
    EXPECT_TRUE(manager->favorites().contains(imageName(second)));
    manager->waitUntilIdle();
    QTest::keyClick(window, Qt::Key_Space);
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("preview")); }));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("preview")); }));
    QTest::keyClick(window, Qt::Key_Delete);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 1);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("albumGrid")); }));
}

TEST_F(GalleryView, aPictureThatAnotherProgramPutsThereAppears)
{
    start();
    open();
    ASSERT_TRUE(isSeen(QStringLiteral("emptyState")));
    (void)putPainting(QStringLiteral("new.png"), QString());
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("album Uncategorized")); }));
}

TEST_F(GalleryView, aBrokenPictureKeepsItsPlaceholder)
{
    const QString path = putImage(QStringLiteral("broken.png"));
    start();
    open();
    click(QStringLiteral("album Uncategorized"));
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("tile ") + path); }));
    click(QStringLiteral("tile ") + path);
    click(QStringLiteral("fullScreenButton"));
    for (const QWindow *each : QGuiApplication::topLevelWindows()) {
        EXPECT_FALSE(each->objectName() == QLatin1String("viewer") && each->isVisible());
    }
}

TEST_F(GalleryView, theContextMenuOfATileCopiesAndDoesWhatTheTileDoes)
{
    const QString path = putPainting(QStringLiteral("one.png"), QStringLiteral("a lake"));
    start();
    open();
    click(QStringLiteral("album a lake"));
    ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("tile ") + path); }));
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(find(QStringLiteral("tile ") + path)));
    ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("menuCopy")); }));
    EXPECT_TRUE(isSeen(QStringLiteral("menuShowInFiles")));
    EXPECT_FALSE(isSeen(QStringLiteral("preview")));
    click(QStringLiteral("menuCopy"));
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->urls(), QList<QUrl>{QUrl::fromLocalFile(path)});
    EXPECT_EQ(copied->imageData().value<QImage>().size(), QSize(480, 300));
    EXPECT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("menuCopy")); }));

    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(find(QStringLiteral("tile ") + path)));
    click(QStringLiteral("menuFavorite"));
    EXPECT_TRUE(manager->favorites().contains(QStringLiteral("one.png")));
}

TEST_F(GalleryView, theKeyboardOpensTheContextMenuAndChoosesFromIt)
{
    const QString path = putPainting(QStringLiteral("one.png"), QStringLiteral("a lake"));
    start();
    open();
    click(QStringLiteral("album a lake"));
    ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("tile ") + path); }));
    find(QStringLiteral("imageGrid"))->forceActiveFocus();
    for (const auto &[key, modifier] : {std::pair{Qt::Key_Menu, Qt::NoModifier}, {Qt::Key_F10, Qt::ShiftModifier}}) {
        ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("imageGrid"))->hasActiveFocus(); }));
        QTest::keyClick(window, key, modifier);
        ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("menuApply")); })) << key;
        QTest::keyClick(window, Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return !isSeen(QStringLiteral("menuApply")); })) << key;
        EXPECT_FALSE(isSeen(QStringLiteral("albumGrid"))) << key;
    }
    QTest::keyClick(window, Qt::Key_Menu);
    ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("menuApply")); }));
    QTest::keyClick(window, Qt::Key_Down);
    QTest::keyClick(window, Qt::Key_Return);
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), QStringList{path});
}

TEST_F(GalleryView, toggledAndNewPicturesLeaveThePlaceAndTheTilesAsTheyAre)
{
    for (int number = 0; number < 60; ++number) {
        (void)putPainting(QStringLiteral("%1.png").arg(number), QStringLiteral("a lake"), {32, 20});
    }
    start();
    open();
    click(QStringLiteral("album a lake"));
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("imageGrid"))->property("count").toInt() == 60; }));
    QQuickItem *grid = find(QStringLiteral("imageGrid"));
    grid->setProperty("contentY", 2000);
    const QString shown = manager->history().at(30);
    ASSERT_TRUE(waitFor([&] { return isSeen(QStringLiteral("tile ") + shown); }));
    const QQuickItem *tile = find(QStringLiteral("tile ") + shown);
    (void)putPainting(QStringLiteral("new.png"), QStringLiteral("another lake"), {32, 20});
    manager->toggleFavorite(manager->history().at(0));
    manager->refreshHistory();
    EXPECT_TRUE(waitFor([&] { return manager->history().size() == 61; }));
    EXPECT_TRUE(waitFor([&] { return find(QStringLiteral("albumGrid"))->property("count").toInt() == 3; }));
    EXPECT_EQ(grid->property("contentY").toInt(), 2000);
    EXPECT_EQ(find(QStringLiteral("tile ") + shown), tile);
}

TEST_F(GalleryView, fortyAlbumsScrollByKeyboardToTheLast)
{
    for (int number = 0; number < 40; ++number) {
        (void)putPainting(QStringLiteral("%1.png").arg(number), QStringLiteral("prompt %1").arg(number), {32, 20});
    }
    start();
    open();
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("albumGrid"))->property("count").toInt() == 40; }));
    find(QStringLiteral("albumGrid"))->forceActiveFocus();
    for (int step = 0; step < 40; ++step) {
        QTest::keyClick(window, Qt::Key_Right);
    }
    EXPECT_EQ(find(QStringLiteral("albumGrid"))->property("currentIndex").toInt(), 39);
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("imageGrid")); }));
}

TEST_F(GalleryView, aLongPromptIsCutAndTheWholeTextIsItsToolTip)
{
    const QString prompt = QStringLiteral("a quiet mountain lake at dawn with mist ").repeated(8).trimmed();
    const QString path = putPainting(QStringLiteral("one.png"), prompt);
    start();
    open();
    click(QStringLiteral("album ") + prompt);
    ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("tile ") + path); }));
    EXPECT_TRUE(find(QStringLiteral("albumTitle"))->property("truncated").toBool());
    hover(middleOf(find(QStringLiteral("albumTitle"))));
    EXPECT_TRUE(waitFor([&] { return isSeen(QStringLiteral("toolTip")); }));
    EXPECT_EQ(textOf(find(QStringLiteral("toolTip"))), prompt);
}

} // namespace quorvane
