#include "Unit/Manager/ManagerFixture.h"

#include <QSignalSpy>

namespace quorvane {

using WallpaperManagerHistoryTest = ManagerTest;

TEST_F(WallpaperManagerHistoryTest, anOriginalIsHiddenWhileItsVariantIsThere)
{
    const QString original = putImage(QStringLiteral("a.png"));
    const QString upscaled = putImage(QStringLiteral("b.png"));
    ImageStore::saveVariantLink(original, upscaled);
    start();
    EXPECT_EQ(manager->history(), QStringList{upscaled});
    ASSERT_TRUE(QFile::remove(upscaled));
    manager->reloadHistory();
    EXPECT_EQ(manager->history(), QStringList{original});
}

TEST_F(WallpaperManagerHistoryTest, brokenSideFilesCountAsEmpty)
{
    const QString original = putImage(QStringLiteral("a.png"));
    for (const char *name : {"variants.json", "favorites.json", "prompts.json"}) {
        QFile file(home.library() + QLatin1Char('/') + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\"a.png\":");
    }
    start();
    EXPECT_EQ(manager->history(), QStringList{original});
    EXPECT_TRUE(manager->favorites().isEmpty());
    ASSERT_EQ(manager->albums().size(), 1U);
    EXPECT_EQ(manager->albums().front().id, QStringLiteral("Uncategorized"));
}

TEST_F(WallpaperManagerHistoryTest, togglingAFavouriteTwiceLeavesThingsAsTheyWere)
{
    const QString path = putImage(QStringLiteral("a.png"));
    start();
    const QSignalSpy announced(manager.get(), &WallpaperManager::favoritesChanged);
    manager->toggleFavorite(path);
    // What is shown changes before the file does.
    EXPECT_EQ(manager->favorites(), QSet<QString>{QStringLiteral("a.png")});
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
    ImageStore::saveFavorite(QStringLiteral("gone.png"));
    (void)putImage(QStringLiteral("a.png"));
    start();
    EXPECT_TRUE(manager->favorites().contains(QStringLiteral("gone.png")));
    ASSERT_EQ(manager->albums().size(), 1U);
    EXPECT_FALSE(manager->albums().front().isFavorites);
}

TEST_F(WallpaperManagerHistoryTest, albumsFollowTheFilesAtEveryCall)
{
    const QString path = putImage(QStringLiteral("a.png"));
    start();
    EXPECT_EQ(manager->albums().front().id, QStringLiteral("Uncategorized"));
    ImageStore::savePrompt(QStringLiteral("a lake"), path);
    EXPECT_EQ(manager->albums().front().id, QStringLiteral("a lake"));
    manager->toggleFavorite(path);
    ASSERT_EQ(manager->albums().size(), 2U);
    EXPECT_TRUE(manager->albums().front().isFavorites);
}

TEST_F(WallpaperManagerHistoryTest, deletingTakesThePartnerAlongAndReloads)
{
    const QString original = putImage(QStringLiteral("a.png"));
    const QString upscaled = putImage(QStringLiteral("b.png"));
    ImageStore::saveVariantLink(original, upscaled);
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
        paths.append(putImage(QStringLiteral("%1.png").arg(index)));
    }
    start();
    for (int index = 1; index < 20; ++index) {
        manager->deleteImage(paths.at(index));
        manager->toggleFavorite(paths.first());
    }
    const bool isFavorite = manager->favorites().contains(QStringLiteral("0.png"));
    EXPECT_TRUE(isFavorite);
    manager->waitUntilIdle();
    EXPECT_EQ(manager->favorites().contains(QStringLiteral("0.png")), isFavorite);
    EXPECT_EQ(sideFile("favorites.json"), R"(["0.png"])");
    EXPECT_EQ(manager->history(), QStringList{paths.first()});
}

TEST_F(WallpaperManagerHistoryTest, theStartOnlyBeginsToReadAndWhoAsksGetsTheWholeAnswer)
{
    const QString image = putImage(QStringLiteral("one.png"));
    ImageStore::saveFavorite(QStringLiteral("one.png"));
    start();
    EXPECT_FALSE(manager->isHistoryRead());
    EXPECT_EQ(manager->history(), QStringList{image});
    EXPECT_TRUE(manager->isHistoryRead());
    EXPECT_TRUE(manager->favorites().contains(QStringLiteral("one.png")));
}

TEST_F(WallpaperManagerHistoryTest, theFirstReadingIsAnnounced)
{
    const QString image = putImage(QStringLiteral("one.png"));
    int announced = 0;
    QObject::connect(&start(), &WallpaperManager::favoritesChanged, [&announced] { ++announced; });
    manager->waitUntilIdle();
    EXPECT_EQ(announced, 1);
    EXPECT_TRUE(manager->isHistoryRead());
    EXPECT_EQ(manager->history(), QStringList{image});
}

TEST_F(WallpaperManagerHistoryTest, whatIsReadOnPurposeMeanwhileCountsMore)
{
    (void)putImage(QStringLiteral("one.png"));
    start();
    (void)putImage(QStringLiteral("two.png"));
    manager->reloadHistory();
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 2);
}

TEST_F(WallpaperManagerHistoryTest, aFavouriteToggledBeforeTheFirstReadingEndedIsNotUndone)
{
    const QString image = putImage(QStringLiteral("one.png"));
    start().toggleFavorite(image);
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->favorites().contains(QStringLiteral("one.png")));
}

} // namespace quorvane
