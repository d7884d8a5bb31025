#include "Unit/Manager/ManagerFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quorvane {

using WallpaperManagerHistoryTest = ManagerTest;

TEST_F(WallpaperManagerHistoryTest, anOriginalIsHiddenWhileItsVariantIsThere)
{
    const QString original = putImage(u"a.png"_s);
    const QString upscaled = putImage(u"b.png"_s);
    EXPECT_TRUE(ImageStore::saveVariantLink(original, upscaled));
    start();
    EXPECT_EQ(manager->history(), QStringList{upscaled});
    ASSERT_TRUE(QFile::remove(upscaled));
    manager->reloadHistory();
    EXPECT_EQ(manager->history(), QStringList{original});
}

TEST_F(WallpaperManagerHistoryTest, brokenSideFilesCountAsEmpty)
{
    const QString original = putImage(u"a.png"_s);
    for (const char *name : {"variants.json", "favorites.json", "prompts.json"}) {
        QFile file(home.library() + '/'_L1 + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\"a.png\":");
    }
    start();
    EXPECT_EQ(manager->history(), QStringList{original});
    EXPECT_TRUE(manager->favorites().isEmpty());
    ASSERT_EQ(manager->albums().size(), 1U);
    EXPECT_EQ(manager->albums().front().id, u"Uncategorized"_s);
}

TEST_F(WallpaperManagerHistoryTest, togglingAFavouriteTwiceLeavesThingsAsTheyWere)
{
    const QString path = putImage(u"a.png"_s);
    start();
    const QSignalSpy announced(manager.get(), &WallpaperManager::favoritesChanged);
    manager->toggleFavorite(path);
    // What is shown changes before the file does.
    EXPECT_EQ(manager->favorites(), QSet<QString>{u"a.png"_s});
    EXPECT_EQ(announced.count(), 1);
    manager->waitUntilIdle();
    EXPECT_EQ(sideFile("favorites.json"), R"(["a.png"])");
    manager->toggleFavorite(path);
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->favorites().isEmpty());
    EXPECT_EQ(sideFile("favorites.json"), "[]");
}

TEST_F(WallpaperManagerHistoryTest, favouritesOfFilesThatAreGoneStayInTheSetAndMakeNoAlbum)
{
    EXPECT_TRUE(ImageStore::saveFavorite(u"gone.png"_s));
    (void)putImage(u"a.png"_s);
    start();
    EXPECT_TRUE(manager->favorites().contains(u"gone.png"_s));
    ASSERT_EQ(manager->albums().size(), 1U);
    EXPECT_FALSE(manager->albums().front().isFavorites);
}

TEST_F(WallpaperManagerHistoryTest, albumsFollowTheFilesAtEveryCall)
{
    const QString path = putImage(u"a.png"_s);
    start();
    EXPECT_EQ(manager->albums().front().id, u"Uncategorized"_s);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, path));
    EXPECT_EQ(manager->albums().front().id, u"a lake"_s);
    manager->toggleFavorite(path);
    ASSERT_EQ(manager->albums().size(), 2U);
    EXPECT_TRUE(manager->albums().front().isFavorites);
}

TEST_F(WallpaperManagerHistoryTest, deletingTakesThePartnerAlongAndReloads)
{
    const QString original = putImage(u"a.png"_s);
    const QString upscaled = putImage(u"b.png"_s);
    EXPECT_TRUE(ImageStore::saveVariantLink(original, upscaled));
    start();
    manager->deleteImage(upscaled);
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->history().isEmpty());
    EXPECT_FALSE(QFile::exists(original));
}

TEST_F(WallpaperManagerHistoryTest, aFavouriteToggledWhileTheLibraryIsReadIsNotUndone)
{
    QStringList paths;
    for (int index = 0; index < 20; ++index) {
        paths.append(putImage(u"%1.png"_s.arg(index)));
    }
    start();
    for (int index = 1; index < 20; ++index) {
        manager->deleteImage(paths.at(index));
        manager->toggleFavorite(paths.first());
    }
    const bool isFavorite = manager->favorites().contains(u"0.png"_s);
    EXPECT_TRUE(isFavorite);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->favorites().contains(u"0.png"_s), isFavorite);
    EXPECT_EQ(sideFile("favorites.json"), R"(["0.png"])");
    EXPECT_EQ(manager->history(), QStringList{paths.first()});
}

TEST_F(WallpaperManagerHistoryTest, theStartOnlyBeginsToReadAndWhoAsksGetsTheWholeAnswer)
{
    const QString image = putImage(u"one.png"_s);
    EXPECT_TRUE(ImageStore::saveFavorite(u"one.png"_s));
    start();
    EXPECT_FALSE(manager->isHistoryRead());
    EXPECT_EQ(manager->history(), QStringList{image});
    EXPECT_TRUE(manager->isHistoryRead());
    EXPECT_TRUE(manager->favorites().contains(u"one.png"_s));
}

TEST_F(WallpaperManagerHistoryTest, theFirstReadingIsAnnounced)
{
    const QString image = putImage(u"one.png"_s);
    int announced = 0;
    QObject::connect(&start(), &WallpaperManager::favoritesChanged, [&announced] { ++announced; });
    manager->waitUntilIdle();
    EXPECT_EQ(announced, 1);
    EXPECT_TRUE(manager->isHistoryRead());
    EXPECT_EQ(manager->history(), QStringList{image});
}

TEST_F(WallpaperManagerHistoryTest, whatIsReadOnPurposeMeanwhileCountsMore)
{
    (void)putImage(u"one.png"_s);
    start();
    (void)putImage(u"two.png"_s);
    manager->reloadHistory();
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 2);
}

TEST_F(WallpaperManagerHistoryTest, aFavouriteToggledBeforeTheFirstReadingEndedIsNotUndone)
{
    const QString image = putImage(u"one.png"_s);
    start().toggleFavorite(image);
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->favorites().contains(u"one.png"_s));
}

} // namespace quorvane
