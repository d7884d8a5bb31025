// The tiles stand for the pictures of the open album, in their order, for those who look and for those who listen.

#include "UI/ViewFixture.h"

#include <QAccessible>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

class GalleryTiles : public ViewTest
{
  protected:
    /// That many pictures of one prompt; their file names begin with letter.
    static void putAlbum(const QString &letter, const QString &prompt, int count = 3)
    {
        for (int number = 0; number < count; ++number) {
            (void)putPainting(u"%1%2.png"_s.arg(letter).arg(number), prompt);
        }
    }

    void openAlbum(const QString &prompt)
    {
        click(u"album "_s + prompt);
        ASSERT_TRUE(waitFor([&] { return isReachable(u"albumsButton"_s); }));
    }

    /// The files of the open album, as the manager has them.
    [[nodiscard]] QStringList filesOf(const QString &prompt) const
    {
        for (const Album &album : manager->albums()) {
            if (album.id == prompt && !album.isFavorites) {
                return album.images;
            }
        }
        return {};
    }

    /// The files whose tiles stand in the grid, row by row.
    [[nodiscard]] QStringList shown() const
    {
        QQuickItem *grid = find(u"imageGrid"_s);
        QStringList urls;
        for (int row = 0; row < grid->property("count").toInt(); ++row) {
            QQuickItem *tile = nullptr;
            QMetaObject::invokeMethod(grid, "itemAtIndex", Q_RETURN_ARG(QQuickItem *, tile), Q_ARG(int, row));
            urls.append(tile != nullptr ? tile->property("url").toString() : u"(none)"_s);
        }
        return urls;
    }

    /// The names of the tiles that assistive technology is told are showing.
    [[nodiscard]] QStringList spoken() const
    {
        QStringList names;
        collectSpoken(QAccessible::queryAccessibleInterface(window), names);
        return names;
    }

  private:
    static void collectSpoken(QAccessibleInterface *interface, QStringList &names)
    {
        const QObject *object = interface->object();
        if (object != nullptr && object->objectName().startsWith("tile "_L1) && !interface->state().invisible) {
            names.append(interface->text(QAccessible::Name));
        }
        for (int child = 0; child < interface->childCount(); ++child) {
            collectSpoken(interface->child(child), names);
        }
    }
};

TEST_F(GalleryTiles, anAlbumShowsItsOwnPicturesAfterThoseOfAnotherWereDeleted)
{
    putAlbum(u"a"_s, u"a lake"_s);
    putAlbum(u"b"_s, u"a hill"_s);
    start();
    open();
    openAlbum(u"a lake"_s);
    ASSERT_TRUE(waitFor([&] { return shown() == filesOf(u"a lake"_s); }));
    const QString deleted = filesOf(u"a lake"_s).first();
    manager->deleteImage(deleted);
    manager->waitUntilIdle();
    ASSERT_TRUE(waitFor([&] { return shown() == filesOf(u"a lake"_s); }));
    click(u"albumsButton"_s);
    openAlbum(u"a hill"_s);
    EXPECT_TRUE(waitFor([&] { return shown() == filesOf(u"a hill"_s); }))
        << shown().join(' '_L1).toStdString() << " instead of " << filesOf(u"a hill"_s).join(' '_L1).toStdString();
}

TEST_F(GalleryTiles, anAlbumShowsItsOwnPicturesAfterOneOfAnotherWasStarred)
{
    putAlbum(u"a"_s, u"a lake"_s);
    putAlbum(u"b"_s, u"a hill"_s);
    start();
    open();
    openAlbum(u"a lake"_s);
    ASSERT_TRUE(waitFor([&] { return shown() == filesOf(u"a lake"_s); }));
    hover(middleOf(find(u"tile "_s + filesOf(u"a lake"_s).last())));
    click(u"star"_s);
    manager->waitUntilIdle();
    hover(QPoint(2, 2)); // While it is over the pictures they keep their places.
    ASSERT_TRUE(waitFor([&] { return shown() == filesOf(u"a lake"_s); }));
    click(u"albumsButton"_s);
    openAlbum(u"a hill"_s);
    EXPECT_TRUE(waitFor([&] { return shown() == filesOf(u"a hill"_s); }))
        << shown().join(' '_L1).toStdString() << " instead of " << filesOf(u"a hill"_s).join(' '_L1).toStdString();
    // What is clicked is what is shown.
    click(u"tile "_s + filesOf(u"a hill"_s).first());
    EXPECT_EQ(find(u"preview"_s)->property("model").value<QObject *>()->property("previewURL"),
              filesOf(u"a hill"_s).first());
}

TEST_F(GalleryTiles, aScreenReaderHearsOfTheTilesThatAreThereAndOfNoOthers)
{
    putAlbum(u"a"_s, u"a lake"_s, 6);
    putAlbum(u"b"_s, u"a hill"_s, 3);
    start();
    open();
    openAlbum(u"a lake"_s);
    ASSERT_TRUE(waitFor([&] { return spoken().size() == 6; }));
    manager->deleteImage(filesOf(u"a lake"_s).first());
    manager->waitUntilIdle();
    EXPECT_TRUE(waitFor([&] { return spoken().size() == 5; }));
    click(u"albumsButton"_s);
    openAlbum(u"a hill"_s);
    ASSERT_TRUE(waitFor([&] { return shown() == filesOf(u"a hill"_s); }));
    EXPECT_EQ(spoken().size(), 3) << spoken().join('\n'_L1).toStdString();
}

TEST_F(GalleryTiles, noTwoTilesHaveTheSameName)
{
    putAlbum(u"a"_s, u"a lake"_s, 4);
    start();
    open();
    openAlbum(u"a lake"_s);
    ASSERT_TRUE(waitFor([&] { return spoken().size() == 4; }));
    const QStringList names = spoken();
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), 4) << names.join('\n'_L1).toStdString();
    EXPECT_TRUE(names.first().startsWith(u"a lake, "_s));
    EXPECT_TRUE(names.first().endsWith(u", 1 of 4"_s)) << names.first().toStdString();
}

TEST_F(GalleryTiles, aTileTellsWhatItsPictureIs)
{
    const QString plain = putPainting(u"plain.png"_s, u"a lake"_s);
    const QString wide = putPainting(u"wide.png"_s, u"a lake"_s, {3840, 24});
    start();
    open();
    openAlbum(u"a lake"_s);
    const auto nameOf = [this](const QString &path) {
        QQuickItem *tile = find(u"tile "_s + path);
        return tile == nullptr ? QString() : QAccessible::queryAccessibleInterface(tile)->text(QAccessible::Name);
    };
    EXPECT_TRUE(waitFor([&] { return nameOf(wide).contains(u", 4K, "_s); })) << nameOf(wide).toStdString();
    for (const char *word : {"4K", "favorite", "wallpaper"}) {
        EXPECT_FALSE(nameOf(plain).contains(QLatin1String(word))) << word;
    }
    manager->toggleFavorite(plain);
    EXPECT_TRUE(waitFor([&] { return nameOf(plain).contains(u", favorite, "_s); })) << nameOf(plain).toStdString();
    manager->setWallpaper(plain);
    manager->waitUntilIdle();
    EXPECT_TRUE(nameOf(plain).contains(u", current wallpaper, "_s)) << nameOf(plain).toStdString();
    manager->setWallpaper(wide);
    manager->waitUntilIdle();
    EXPECT_FALSE(nameOf(plain).contains(u"wallpaper"_s)) << nameOf(plain).toStdString();
    EXPECT_TRUE(nameOf(wide).contains(u", current wallpaper, "_s)) << nameOf(wide).toStdString();
}

TEST_F(GalleryTiles, whatIsScrolledOutOfSightIsNotTold)
{
    putAlbum(u"a"_s, u"a lake"_s, 30);
    start();
    open();
    openAlbum(u"a lake"_s);
    const auto isTold = [this](const QString &place) {
        const QStringList names = spoken();
        return std::any_of(names.begin(), names.end(), [&](const QString &name) { return name.endsWith(place); });
    };
    EXPECT_TRUE(waitFor([&] { return isTold(u", 1 of 30"_s); }));
    QQuickItem *grid = find(u"imageGrid"_s);
    grid->setProperty("contentY", find(u"tile "_s + filesOf(u"a lake"_s).first())->height() + 4);
    EXPECT_FALSE(isTold(u", 1 of 30"_s));
    EXPECT_TRUE(isTold(u", 4 of 30"_s));
}

} // namespace quorvane
