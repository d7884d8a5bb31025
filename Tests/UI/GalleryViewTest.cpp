#include "UI/ViewFixture.h"

#include <QClipboard>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace quorvane {

using GalleryView = ViewTest;

TEST_F(GalleryView, anEmptyLibrarySaysWhatToDo)
{
    start();
    open();
    EXPECT_TRUE(isSeen(u"emptyState"_s));
    EXPECT_FALSE(isSeen(u"albumGrid"_s));
}

TEST_F(GalleryView, anAlbumOpensItsPicturesAndAPictureOpensThePreview)
{
    const QString path = putPainting(u"one.png"_s, u"a lake"_s);
    start();
    open();
    click(u"album a lake"_s);
    EXPECT_EQ(textOf(find(u"albumTitle"_s)), u"a lake"_s);
    click(u"tile "_s + path);
    EXPECT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
    EXPECT_TRUE(waitFor([&] { return find(u"previewPicture"_s)->property("status").toInt() == 1; }));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
    click(u"albumsButton"_s);
    EXPECT_TRUE(isSeen(u"albumGrid"_s));
}

TEST_F(GalleryView, theAlbumsPromptCanBeUsedUnlessItIsNone)
{
    const QString known = putPainting(u"one.png"_s, u"a lake"_s);
    const QString unknown = putPainting(u"two.png"_s, QString());
    start().toggleFavorite(known);
    open();
    for (const char *special : {"Favorites", "Uncategorized"}) {
        click(u"album "_s + QLatin1String(special));
        EXPECT_FALSE(isSeen(u"usePromptButton"_s)) << special;
        click(u"albumsButton"_s);
    }
    click(u"album a lake"_s);
    click(u"usePromptButton"_s);
    EXPECT_EQ(manager->prompt(), u"a lake"_s);
    EXPECT_EQ(textOf(find(u"promptEditor"_s)), u"a lake"_s);
}

TEST_F(GalleryView, theActionsOfATileAppearInOnePlaceWhereverThePointerComesIn)
{
    const QString path = putPainting(u"one.png"_s, u"a lake"_s);
    start();
    open();
    click(u"album a lake"_s);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"tile "_s + path); }));
    const QQuickItem *tile = find(u"tile "_s + path);
    EXPECT_TRUE(waitFor([&] { return tile->width() >= 220; }));
    QRectF trashPlace;
    // The pointer comes in anywhere: a grid of places over the whole tile.
    for (int x = 4; x < 220; x += 24) {
        for (int y = 4; y < 170; y += 16) {
            hover(QPoint(2, 2));
            ASSERT_FALSE(isSeen(u"trash"_s));
            const QPoint place = tile->mapToScene(QPointF(x, y)).toPoint();
            hover(place);
            ASSERT_TRUE(isSeen(u"trash"_s)) << x << ' ' << y;
            trashPlace = trashPlace.isNull() ? placeOf(u"trash"_s) : trashPlace;
            ASSERT_EQ(placeOf(u"trash"_s), trashPlace) << x << ' ' << y;
        }
    }
    // At the other end than what is pressed often.
    EXPECT_GT(trashPlace.left() - placeOf(u"apply"_s).right(), 80);
    EXPECT_GT(trashPlace.top() - placeOf(u"star"_s).bottom(), 40);
}

TEST_F(GalleryView, aTileAppliesFavoursAndDeletes)
{
    const QString path = putPainting(u"one.png"_s, u"a lake"_s);
    const QString kept = putPainting(u"two.png"_s, u"a hill"_s);
    start();
    open();
    click(u"album a lake"_s);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"tile "_s + path); }));
    hover(middleOf(find(u"tile "_s + path)));
    click(u"apply"_s);
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), QStringList{path});
    EXPECT_FALSE(isSeen(u"preview"_s));

    click(u"star"_s);
    EXPECT_TRUE(manager->favorites().contains(u"one.png"_s));
    click(u"trash"_s);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history(), QStringList{kept});
    // The album is gone, and with it its page.
    EXPECT_TRUE(waitFor([&] { return isSeen(u"albumGrid"_s); }));
}

TEST_F(GalleryView, aPictureThatCannotBeDeletedStaysAndIsSaidSo)
{
    // A folder that is not empty is listed by its name, and no program removes it like a file.
    const QString path = home.library() + u"/x.png"_s;
    ASSERT_TRUE(QDir().mkpath(path + u"/inside"_s));
    start();
    open();
    click(u"album Uncategorized"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + path); }));
    EXPECT_FALSE(isSeen(u"problems"_s));
    hover(middleOf(find(u"tile "_s + path)));
    click(u"trash"_s);
    manager->waitUntilIdle();
    EXPECT_TRUE(waitFor([&] { return isSeen(u"problems"_s); }));
    EXPECT_EQ(textOf(find(u"problems"_s)), u"x.png could not be deleted: Directory not empty"_s);
    EXPECT_TRUE(QRectF(QPointF(), window->size()).contains(placeOf(u"problems"_s)));
    EXPECT_TRUE(isReachable(u"tile "_s + path));
    EXPECT_TRUE(QFileInfo::exists(path + u"/inside"_s));
}

TEST_F(GalleryView, keysOpenMoveFavourAndDelete)
{
    const QString older = putPainting(u"one.png"_s, u"a lake"_s);
    const QString newer = putPainting(u"two.png"_s, u"a lake"_s);
    start();
    open();
    ASSERT_TRUE(waitFor([&] { return isSeen(u"album a lake"_s); }));
    find(u"albumGrid"_s)->forceActiveFocus();
    QTest::keyClick(window, Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return find(u"imageGrid"_s)->hasActiveFocus(); }));
    const QString first = manager->history().first();
    const QString second = manager->history().last();
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + second); }));
    QTest::keyClick(window, Qt::Key_Right);
    QTest::keyClick(window, Qt::Key_F);
    EXPECT_TRUE(manager->favorites().contains(imageName(second)));
    manager->waitUntilIdle();
    QTest::keyClick(window, Qt::Key_Space);
    EXPECT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
    QTest::keyClick(window, Qt::Key_Delete);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 1);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_TRUE(waitFor([&] { return isSeen(u"albumGrid"_s); }));
}

TEST_F(GalleryView, aPictureThatAnotherProgramPutsThereAppears)
{
    start();
    open();
    ASSERT_TRUE(isSeen(u"emptyState"_s));
    (void)putPainting(u"new.png"_s, QString());
    EXPECT_TRUE(waitFor([&] { return isSeen(u"album Uncategorized"_s); }));
}

TEST_F(GalleryView, aBrokenPictureKeepsItsPlaceholder)
{
    const QString path = putImage(u"broken.png"_s);
    start();
    open();
    click(u"album Uncategorized"_s);
    EXPECT_TRUE(waitFor([&] { return isSeen(u"tile "_s + path); }));
    EXPECT_TRUE(waitFor([&] { return find(u"tile "_s + path)->property("isBroken").toBool(); }));
}

TEST_F(GalleryView, theContextMenuOfATileCopiesAndDoesWhatTheTileDoes)
{
    const QString path = putPainting(u"one.png"_s, u"a lake"_s);
    start();
    open();
    click(u"album a lake"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + path); }));
    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(find(u"tile "_s + path)));
    ASSERT_TRUE(waitFor([&] { return isReachable(u"menuCopy"_s); }));
    EXPECT_TRUE(isSeen(u"menuShowInFiles"_s));
    EXPECT_FALSE(isSeen(u"preview"_s));
    click(u"menuCopy"_s);
    const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->urls(), QList<QUrl>{QUrl::fromLocalFile(path)});
    EXPECT_EQ(copied->imageData().value<QImage>().size(), QSize(480, 300));
    EXPECT_TRUE(waitFor([&] { return !isSeen(u"menuCopy"_s); }));

    QTest::mouseClick(window, Qt::RightButton, {}, middleOf(find(u"tile "_s + path)));
    click(u"menuFavorite"_s);
    EXPECT_TRUE(manager->favorites().contains(u"one.png"_s));
}

TEST_F(GalleryView, theKeyboardOpensTheContextMenuAndChoosesFromIt)
{
    // Two strokes of one key within a few milliseconds are a key that is held; this test is quicker than a finger.
    constexpr int kFingerMilliseconds = 20;
    const QString path = putPainting(u"one.png"_s, u"a lake"_s);
    start();
    open();
    click(u"album a lake"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + path); }));
    find(u"imageGrid"_s)->forceActiveFocus();
    for (const auto &[key, modifier] : {std::pair{Qt::Key_Menu, Qt::NoModifier}, {Qt::Key_F10, Qt::ShiftModifier}}) {
        ASSERT_TRUE(waitFor([&] { return find(u"imageGrid"_s)->hasActiveFocus(); }));
        QTest::keyClick(window, key, modifier);
        ASSERT_TRUE(waitFor([&] { return isReachable(u"menuApply"_s); })) << key;
        QTest::keyClick(window, Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return !isSeen(u"menuApply"_s); })) << key;
        EXPECT_FALSE(isSeen(u"albumGrid"_s)) << key;
    }
    // The keyboard comes back to the grid once the menu is gone, not when it begins to go.
    ASSERT_TRUE(waitFor([&] { return find(u"imageGrid"_s)->hasActiveFocus(); }));
    QTest::qWait(kFingerMilliseconds);
    QTest::keyClick(window, Qt::Key_Menu);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"menuApply"_s); }));
    QTest::keyClick(window, Qt::Key_Down);
    QTest::keyClick(window, Qt::Key_Return);
    manager->waitUntilIdle();
    EXPECT_EQ(desktop.shown(), QStringList{path});
}

TEST_F(GalleryView, toggledAndNewPicturesLeaveThePlaceAndTheTilesAsTheyAre)
{
    for (int number = 0; number < 60; ++number) {
        (void)putPainting(u"%1.png"_s.arg(number), u"a lake"_s, {32, 20});
    }
    start();
    open();
    click(u"album a lake"_s);
    ASSERT_TRUE(waitFor([&] { return find(u"imageGrid"_s)->property("count").toInt() == 60; }));
    QQuickItem *grid = find(u"imageGrid"_s);
    grid->setProperty("contentY", 2000);
    const QString shown = manager->history().at(30);
    ASSERT_TRUE(waitFor([&] { return isSeen(u"tile "_s + shown); }));
    const QQuickItem *tile = find(u"tile "_s + shown);
    (void)putPainting(u"new.png"_s, u"another lake"_s, {32, 20});
    manager->toggleFavorite(manager->history().at(0));
    manager->refreshHistory();
    EXPECT_TRUE(waitFor([&] { return manager->history().size() == 61; }));
    EXPECT_TRUE(waitFor([&] { return find(u"albumGrid"_s)->property("count").toInt() == 3; }));
    EXPECT_EQ(grid->property("contentY").toInt(), 2000);
    EXPECT_EQ(find(u"tile "_s + shown), tile);
}

TEST_F(GalleryView, fortyAlbumsScrollByKeyboardToTheLast)
{
    for (int number = 0; number < 40; ++number) {
        (void)putPainting(u"%1.png"_s.arg(number), u"prompt %1"_s.arg(number), {32, 20});
    }
    start();
    open();
    ASSERT_TRUE(waitFor([&] { return find(u"albumGrid"_s)->property("count").toInt() == 40; }));
    find(u"albumGrid"_s)->forceActiveFocus();
    for (int step = 0; step < 40; ++step) {
        QTest::keyClick(window, Qt::Key_Right);
    }
    EXPECT_EQ(find(u"albumGrid"_s)->property("currentIndex").toInt(), 39);
    QTest::keyClick(window, Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return isSeen(u"imageGrid"_s); }));
}

TEST_F(GalleryView, aLongPromptIsCutAndTheWholeTextIsItsToolTip)
{
    const QString prompt = u"a quiet mountain lake at dawn with mist "_s.repeated(8).trimmed();
    const QString path = putPainting(u"one.png"_s, prompt);
    start();
    open();
    click(u"album "_s + prompt);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + path); }));
    EXPECT_TRUE(find(u"albumTitle"_s)->property("truncated").toBool());
    hover(middleOf(find(u"albumTitle"_s)));
    EXPECT_TRUE(waitFor([&] { return isSeen(u"toolTip"_s); }));
    EXPECT_EQ(textOf(find(u"toolTip"_s)), prompt);
}

} // namespace quorvane
