#include "Manager/Undo/Deletions.h"
#include "Unit/Manager/WallpaperManagerOutcomeFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(WallpaperManagerOutcomeTest, deletingAPictureStopsItsUpscale)
{
    const QString path = putImage(u"a.png"_s);
    start();
    manager->upscaleExistingImage(path);
    (void)upscale(0);
    manager->deleteImage(path);
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->history().isEmpty());
    EXPECT_TRUE(desktop.shown().isEmpty());
    EXPECT_EQ(manager->currentWallpaperURL(), QString());
    EXPECT_EQ(manager->status(), u"Upscale failed: the picture was deleted"_s);
    EXPECT_FALSE(manager->isLoading());
    EXPECT_EQ(results.size(), 2);
}

TEST_F(WallpaperManagerOutcomeTest, deletingAPictureInAWindowStopsItsUpscaleToo)
{
    const QString path = putImage(u"a.png"_s);
    start();
    manager->upscaleExistingImage(path);
    (void)upscale(0);
    manager->deletions().remove({path});
    manager->waitUntilIdle();
    EXPECT_TRUE(manager->history().isEmpty());
    EXPECT_TRUE(desktop.shown().isEmpty());
    EXPECT_EQ(manager->status(), u"Upscale failed: the picture was deleted"_s);
}

TEST_F(WallpaperManagerOutcomeTest, deletingTheOriginalWhileAGenerationEnlargesItEndsTheGeneration)
{
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    manager->generateAndSet();
    (void)upscale(0);
    const quint64 deletion = manager->nextOperation();
    manager->deleteImage(home.library() + u"/wallpaper_2026-01-31_23-59-01.jpg"_s);
    manager->waitUntilIdle();
    const OperationResult generation = resultOf(deletion - 1);
    EXPECT_TRUE(generation.isError);
    EXPECT_EQ(generation.file, QString());
    EXPECT_EQ(generation.original, QString());
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
    EXPECT_TRUE(desktop.shown().isEmpty());
}

} // namespace quorvane
