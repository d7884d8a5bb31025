#include "Unit/Manager/Generate/WallpaperManagerGenerateFixture.h"

#include "Manager/SettingsKeys.h"
#include "Platform/Threads/Worker.h"
#include "Storage/SideFile.h"
#include "Support/WaitFor.h"

#include <QTimer>

#include <condition_variable>
#include <mutex>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(WallpaperManagerGenerateTest, twoSavesNeverFallIntoOneSecondWhileTheClockGoesOn)
{
    clock.secondsPerLook = 0;
    clock.letWallRun();
    EXPECT_TRUE(Keychain::remove(u"gemini"_s));
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    generate();
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_NE(result.original, result.file);
    EXPECT_EQ(ImageStore::allImages().size(), 2);
    EXPECT_EQ(contentOf(result.original), contentOf(result.file));
    EXPECT_EQ(readTextMap(ImageStore::variantsPath()), (TextMap{{imageName(result.original), imageName(result.file)}}));
    EXPECT_EQ(manager->history(), QStringList{result.file});
    EXPECT_EQ(manager->currentWallpaperURL(), result.file);
}

TEST_F(WallpaperManagerGenerateTest, whileTheClockStandsStillTwoSavesLinkThePictureToItselfAndHideIt)
{
    clock.secondsPerLook = 0;
    EXPECT_TRUE(Keychain::remove(u"gemini"_s));
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    generate();
    EXPECT_EQ(sideFile("variants.json"),
              R"({"wallpaper_2026-01-31_23-59-00.jpg":"wallpaper_2026-01-31_23-59-00.jpg"})");
    EXPECT_TRUE(manager->history().isEmpty());
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_EQ(manager->currentWallpaperURL(), inLibrary("wallpaper_2026-01-31_23-59-00.jpg"));
}

TEST_F(WallpaperManagerGenerateTest, goingWhileTheNextSecondIsWaitedForKeepsTheOriginal)
{
    clock.secondsPerLook = 0;
    localUpscale = [this](QByteArray, std::stop_token,
                          std::function<void(UpscaleProgress)>) -> QCoro::Task<EncodedImage> {
        QTimer::singleShot(0, qApp, [this] { manager.reset(); });
        throw ProviderError::invalidResponse(u"no"_s);
        co_return EncodedImage();
    };
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    manager->generateAndSet();
    ASSERT_TRUE(waitFor([this] { return manager == nullptr; }));
    EXPECT_EQ(result.status, u"Upscale failed: Quorvane is quitting"_s);
    EXPECT_TRUE(result.isError);
    EXPECT_EQ(files(), (QStringList{u"prompts.json"_s, u"wallpaper_2026-01-31_23-59-00.jpg"_s}));
    EXPECT_TRUE(desktop.shown().isEmpty());
}

TEST_F(WallpaperManagerGenerateTest, goingWhileARequestRunsLeavesNothing)
{
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    start();
    manager->generateAndSet();
    ASSERT_TRUE(waitFor([this] { return !service.requests().isEmpty(); }));
    manager.reset();
    EXPECT_TRUE(files().isEmpty());
    EXPECT_TRUE(desktop.shown().isEmpty());
}

TEST_F(WallpaperManagerGenerateTest, goingWhileAnUpscaleRunsKeepsTheOriginal)
{
    localUpscale = [](QByteArray, std::stop_token stop,
                      std::function<void(UpscaleProgress)>) -> QCoro::Task<EncodedImage> {
        auto work = [stop] {
            std::mutex mutex;
            std::condition_variable_any stopped;
            std::unique_lock lock(mutex);
            stopped.wait(lock, stop, [] { return false; });
            throw ProviderError::invalidResponse(u"stopped"_s);
        };
        co_await onWorker(std::move(work));
        co_return EncodedImage();
    };
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    manager->setPrompt(u"a lake"_s);
    manager->generateAndSet();
    ASSERT_TRUE(waitFor([this] { return manager->status().startsWith(u"Upscaling"_s); }));
    QList<OperationResult> told;
    QObject::connect(manager.get(), &WallpaperManager::operationEnded, manager.get(),
                     [&told](const OperationResult &ended) { told.append(ended); });
    manager.reset();
    EXPECT_EQ(files(), (QStringList{u"prompts.json"_s, u"wallpaper_2026-01-31_23-59-01.jpg"_s}));
    EXPECT_TRUE(desktop.shown().isEmpty());
    // Whoever waits for it learns what became of it.
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told.first().isError);
    EXPECT_EQ(told.first().status, u"Upscale failed: Quorvane is quitting"_s);
    EXPECT_EQ(told.first().original, inLibrary("wallpaper_2026-01-31_23-59-01.jpg"));
    EXPECT_EQ(told.first().file, QString());
}

} // namespace quorvane
