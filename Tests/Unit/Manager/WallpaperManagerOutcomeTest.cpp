// What each operation tells of itself while others run, and how it ends early.

#include "Unit/Manager/WallpaperManagerOutcomeFixture.h"

#include "Platform/Files/FolderLock.h"
#include "Support/SmallDisk.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(WallpaperManagerOutcomeTest, aSuccessIsNotAnsweredWithTheFailureOfAnother)
{
    start();
    bool isFirst = true;
    quint64 other = 0;
    // The other one fails while the first, which is set already, still reads the library.
    QObject::connect(manager.get(), &WallpaperManager::statusChanged, manager.get(), [&] {
        if (manager->status() == "Wallpaper set!"_L1 && std::exchange(isFirst, false)) {
            manager->setProviderOverride(u"openai"_s);
            other = manager->nextOperation();
            manager->generateAndSet();
        }
    });
    const quint64 first = manager->nextOperation();
    generate();
    const OperationResult success = resultOf(first);
    EXPECT_EQ(success.status, u"Wallpaper set!"_s);
    EXPECT_FALSE(success.isError);
    EXPECT_EQ(success.file, home.library() + u"/wallpaper_2026-01-31_23-59-01.png"_s);
    const OperationResult failure = resultOf(other);
    EXPECT_EQ(failure.status, u"Missing OpenAI API key — open Settings (⌘,)"_s);
    EXPECT_TRUE(failure.isError);
    EXPECT_EQ(failure.file, QString());
    // What is published is of whichever reported last.
    EXPECT_EQ(manager->status(), failure.status);
}

TEST_F(WallpaperManagerOutcomeTest, theFirstOfTwoUpscalesToEndHidesNothingOfTheOther)
{
    const QString first = putImage(u"a.png"_s);
    const QString second = putImage(u"b.png"_s);
    start();
    manager->upscaleExistingImage(first);
    Held &older = upscale(0);
    manager->upscaleExistingImage(second);
    Held &newer = upscale(1);
    QList<int> published;
    QObject::connect(manager.get(), &WallpaperManager::progressChanged, manager.get(),
                     [&] { published.append(manager->progress() ? manager->progress()->tilesDone : -1); });
    newer.progress({1, 100, std::nullopt});
    older.progress({40, 100, std::nullopt});
    newer.progress({2, 100, std::nullopt});
    older.progress({41, 100, std::nullopt});
    EXPECT_EQ(published, (QList<int>{1, 2}));
    older.finish();
    ASSERT_TRUE(waitFor([this] { return results.size() == 1; }));
    EXPECT_EQ(result.original, first);
    newer.progress({3, 100, std::nullopt});
    EXPECT_EQ(published, (QList<int>{1, 2, 3}));
    EXPECT_TRUE(manager->isLoading());
    EXPECT_EQ(manager->upscalingURL(), second);
    newer.finish();
    manager->waitUntilIdle();
    EXPECT_EQ(published, (QList<int>{1, 2, 3, -1}));
    EXPECT_EQ(result.original, second);
    EXPECT_FALSE(manager->isLoading());
    EXPECT_EQ(manager->upscalingURL(), QString());
}

TEST_F(WallpaperManagerOutcomeTest, aPictureThatIsDeletedWhileItsCopyIsBeingStoredTakesTheCopyAlong)
{
    const QString path = putImage(u"a.png"_s);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, path));
    start().waitUntilIdle();
    manager->upscaleExistingImage(path);
    Held &running = upscale(0);
    {
        // The copy is in the library, and its records wait for the lock.
        const FolderLock lock(ImageStore::directory());
        running.finish();
        ASSERT_TRUE(waitFor([] { return ImageStore::allImages().size() == 2; }));
        manager->deleteImage(path);
    }
    manager->waitUntilIdle();
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
    EXPECT_TRUE(desktop.shown().isEmpty());
    EXPECT_EQ(manager->status(), u"Upscale failed: the picture was deleted"_s);
}

TEST_F(WallpaperManagerOutcomeTest, aSourceThatAnotherProcessDeletedLeavesNoCopy)
{
    const QString path = putImage(u"a.png"_s);
    start();
    manager->upscaleExistingImage(path);
    Held &running = upscale(0);
    EXPECT_TRUE(ImageStore::deleteImage(path));
    running.finish();
    manager->waitUntilIdle();
    EXPECT_TRUE(ImageStore::allImages().isEmpty());
    EXPECT_TRUE(desktop.shown().isEmpty());
    EXPECT_TRUE(result.isError);
}

TEST_F(WallpaperManagerOutcomeTest, goingWhileAnUpscaleRunsTellsWhoWaitsForIt)
{
    const QString path = putImage(u"a.png"_s);
    start();
    manager->upscaleExistingImage(path);
    (void)upscale(0);
    QList<OperationResult> told;
    QObject::connect(manager.get(), &WallpaperManager::operationEnded, manager.get(),
                     [&told](const OperationResult &ended) { told.append(ended); });
    manager.reset();
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told.first().status, u"Upscale failed: Quorvane is quitting"_s);
    EXPECT_TRUE(told.first().isError);
}

TEST_F(WallpaperManagerOutcomeTest, whatCouldNotBeRecordedIsToldAndThePictureIsSetAllTheSame)
{
    start();
    {
        // Room for the picture, and not for the prompt.
        const FileSizeLimit limit(20'000);
        generate(QString(200'000, 'x'_L1));
    }
    EXPECT_EQ(result.status, u"Wallpaper set!"_s);
    EXPECT_FALSE(result.isError);
    EXPECT_TRUE(QFile::exists(result.file));
    ASSERT_EQ(result.problems.size(), 1);
    EXPECT_TRUE(result.problems.first().contains(u"prompts.json"_s)) << result.problems.first().toStdString();
    EXPECT_EQ(manager->problems(), result.problems);
    generate();
    EXPECT_TRUE(result.problems.isEmpty());
    EXPECT_TRUE(manager->problems().isEmpty());
}

TEST_F(WallpaperManagerOutcomeTest, aFileThatWasPutAsideIsToldOfOnce)
{
    start().waitUntilIdle();
    QFile prompts(ImageStore::promptsPath());
    ASSERT_TRUE(prompts.open(QIODevice::WriteOnly));
    prompts.write("{");
    prompts.close();
    generate();
    EXPECT_FALSE(result.isError);
    ASSERT_EQ(result.problems.size(), 1);
    EXPECT_TRUE(result.problems.first().contains(u"unreadable-1"_s)) << result.problems.first().toStdString();
    EXPECT_EQ(manager->problems(), result.problems);
    generate();
    EXPECT_TRUE(result.problems.isEmpty());
}

TEST_F(WallpaperManagerOutcomeTest, aFavouriteThatCouldNotBeKeptIsAFailureBesideTheStatus)
{
    start().waitUntilIdle();
    {
        const FileSizeLimit limit(100);
        manager->toggleFavorite(QString(200, 'x'_L1));
        manager->waitUntilIdle();
    }
    EXPECT_TRUE(result.isError);
    EXPECT_TRUE(result.status.contains(u"favorites.json"_s)) << result.status.toStdString();
    EXPECT_EQ(manager->problems(), QStringList{result.status});
    EXPECT_EQ(manager->status(), QString());
    EXPECT_FALSE(manager->isError());
}

} // namespace quorvane
