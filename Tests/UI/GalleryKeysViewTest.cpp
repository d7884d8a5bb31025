// What a key does in the gallery, it does to the picture that is ringed and seen.

#include "UI/ViewFixture.h"

#include <QBuffer>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](double share) {
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// 1 for equal colours to 21 for black and white, as the guidelines for accessible content count it.
double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace

class GalleryKeys : public ViewTest
{
  protected:
    /// An open album of that many pictures.
    void openAlbum(int count)
    {
        for (int number = 0; number < count; ++number) {
            (void)putPainting(u"%1.png"_s.arg(number, 3, 10, '0'_L1), u"a lake"_s, {64, 40});
        }
        start();
        open();
        click(u"album a lake"_s);
        ASSERT_TRUE(waitFor([&] { return isReachable(tile(0)); }));
    }

    [[nodiscard]] QString file(int number) const { return images().value(number); }
    [[nodiscard]] QString tile(int number) const { return u"tile "_s + file(number); }
    [[nodiscard]] QStringList images() const
    {
        const std::vector<Album> albums = manager->albums();
        return albums.empty() ? QStringList() : albums.back().images;
    }
    [[nodiscard]] bool isLeft(const QString &path) const { return manager->history().contains(path); }

    /// The file of the tile that shows the ring of the keyboard.
    [[nodiscard]] QString ringed() const
    {
        const auto *tile = find(u"imageGrid"_s)->property("currentItem").value<QQuickItem *>();
        const bool isRinged = tile != nullptr && tile->property("selected").toBool();
        return isRinged ? tile->property("url").toString() : QString();
    }

    [[nodiscard]] bool isRingInSight() const
    {
        bool isInSight = false;
        QMetaObject::invokeMethod(find(u"imageGrid"_s), "showsCurrent", Q_RETURN_ARG(bool, isInSight));
        return isInSight && !ringed().isEmpty();
    }

    void closePreview()
    {
        ASSERT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
        QTest::keyClick(window, Qt::Key_Escape);
        ASSERT_TRUE(waitFor([&] { return !isSeen(u"preview"_s); }));
    }

    /// In which row the grid shows the tile of that file.
    [[nodiscard]] int placeOf(const QString &path) const
    {
        const QQuickItem *item = find(u"tile "_s + path);
        return item != nullptr ? item->property("index").toInt() : -1;
    }
};

TEST_F(GalleryKeys, deleteDeletesThePictureThatWasClickedLast)
{
    openAlbum(4);
    const QString clicked = file(3);
    click(tile(3));
    closePreview();
    EXPECT_EQ(ringed(), clicked);
    QTest::keyClick(window, Qt::Key_Delete);
    manager->waitUntilIdle();
    EXPECT_FALSE(isLeft(clicked));
    EXPECT_EQ(manager->history().size(), 3);
}

TEST_F(GalleryKeys, whoClosesAnAlbumIsAtThatAlbum)
{
    for (const QString &prompt : {u"a lake"_s, u"a hill"_s, u"a wood"_s}) {
        (void)putPainting(prompt + u".png"_s, prompt, {64, 40});
    }
    start();
    open();
    const QString last = u"album "_s + manager->albums().back().id;
    click(last);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"albumsButton"_s); }));
    QTest::keyClick(window, Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return isReachable(last); }));
    EXPECT_TRUE(find(last)->property("selected").toBool());
}

TEST_F(GalleryKeys, theRingStandsOutFromAPictureOfItsOwnColour)
{
    const QColor accent(u"#4259d6"_s);
    QImage plain(64, 40, QImage::Format_RGB32);
    plain.fill(accent);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly) && plain.save(&buffer, "PNG"));
    const QString path = valueOf(ImageStore::saveImage(u"blue.png"_s, bytes));
    start();
    open();
    click(u"album Uncategorized"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + path) && ringed() == path; }));
    hover(QPoint(5, 5));
    const QPoint corner = ViewTest::placeOf(u"tile "_s + path).topLeft().toPoint();
    constexpr int kMiddleOfPicture = 65;
    QImage seen;
    ASSERT_TRUE(waitFor([&] {
        seen = window->grabWindow();
        return seen.pixelColor(corner + QPoint(100, kMiddleOfPicture)) == accent;
    }));
    double best = 0;
    for (int inside = 0; inside < 8; ++inside) {
        best = std::max(best, contrast(accent, seen.pixelColor(corner + QPoint(inside, kMiddleOfPicture))));
    }
    EXPECT_GE(best, 3);
}

TEST_F(GalleryKeys, theRingGoesWhereThePreviewHasGone)
{
    openAlbum(40);
    click(tile(0));
    ASSERT_TRUE(waitFor([&] { return isSeen(u"preview"_s); }));
    for (int step = 0; step < 30; ++step) {
        QTest::keyClick(window, Qt::Key_Right);
    }
    closePreview();
    EXPECT_EQ(ringed(), file(30));
    EXPECT_TRUE(waitFor([&] { return isReachable(tile(30)); }));
}

TEST_F(GalleryKeys, theRingStaysWithThePictureWhenOthersComeGoAndMove)
{
    openAlbum(6);
    const QString own = file(3);
    click(tile(3));
    closePreview();
    hover(QPoint(2, 2));
    // One goes before it, one comes before it, and one behind it becomes the first.
    manager->deleteImage(file(0));
    manager->waitUntilIdle();
    EXPECT_TRUE(waitFor([&] { return find(u"imageGrid"_s)->property("count").toInt() == 5; }));
    EXPECT_EQ(ringed(), own);
    (void)putPainting(u"new.png"_s, u"a lake"_s, {64, 40});
    manager->reloadHistory();
    EXPECT_TRUE(waitFor([&] { return find(u"imageGrid"_s)->property("count").toInt() == 6; }));
    EXPECT_EQ(ringed(), own);
    manager->toggleFavorite(images().last());
    manager->waitUntilIdle();
    EXPECT_TRUE(waitFor([&] { return placeOf(own) == images().indexOf(own); }));
    EXPECT_EQ(ringed(), own);
    // And it goes with it when it moves itself.
    QTest::keyClick(window, Qt::Key_F);
    manager->waitUntilIdle();
    EXPECT_TRUE(waitFor([&] { return placeOf(own) == 0 && images().first() == own; }));
    EXPECT_EQ(ringed(), own);
}

TEST_F(GalleryKeys, aStarLeavesThePicturesWhereTheyAreUntilThePointerGoes)
{
    openAlbum(4);
    const QString own = file(2);
    hover(middleOf(find(tile(2))));
    ASSERT_TRUE(waitFor([&] { return findBelow(find(u"tile "_s + own), u"star"_s, true) != nullptr; }));
    const QPoint star = middleOf(findBelow(find(u"tile "_s + own), u"star"_s, true));
    QTest::mouseClick(window, Qt::LeftButton, {}, star);
    manager->waitUntilIdle();
    EXPECT_EQ(images().first(), own);
    // The second press of a double click finds the same picture.
    QTest::mouseClick(window, Qt::LeftButton, {}, star);
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->favorites().isEmpty());
    QTest::mouseClick(window, Qt::LeftButton, {}, star);
    manager->waitUntilIdle();
    EXPECT_EQ(placeOf(own), 2);
    hover(QPoint(2, 2));
    EXPECT_TRUE(waitFor([&] { return placeOf(own) == 0; }));
}

TEST_F(GalleryKeys, aKeyThatIsHeldDeletesOnePicture)
{
    openAlbum(6);
    click(tile(0));
    closePreview();
    const QString ownFile = ringed();
    hold(Qt::Key_Delete, 24);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 5);
    EXPECT_FALSE(isLeft(ownFile));
    // A frame later the tiles lie where they stay; before, the one at the ring is not in sight, or that of the picture
    // which is gone.
    ASSERT_TRUE(waitFor([&] { return images().size() == 5 && isRingInSight() && ringed() != ownFile; }));
    EXPECT_EQ(ringed(), images().first()) << images().join(' '_L1).toStdString();
    hold(Qt::Key_Delete, 0);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 4);
}

TEST_F(GalleryKeys, aPictureOutOfSightIsShownInsteadOfDeleted)
{
    openAlbum(60);
    click(tile(0));
    closePreview();
    const QString own = ringed();
    find(u"imageGrid"_s)->setProperty("contentY", 2000);
    EXPECT_TRUE(waitFor([&] { return !isReachable(u"tile "_s + own); }));
    hold(Qt::Key_Delete, 0);
    manager->waitUntilIdle();
    EXPECT_TRUE(isLeft(own));
    EXPECT_TRUE(waitFor([&] { return isReachable(u"tile "_s + own); }));
    hold(Qt::Key_Delete, 0);
    manager->waitUntilIdle();
    EXPECT_FALSE(isLeft(own));
}

} // namespace quorvane
