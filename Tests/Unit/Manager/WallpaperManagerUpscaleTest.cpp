#include "Unit/Manager/WallpaperManagerUpscaleFixture.h"

#include "Manager/SettingsKeys.h"
#include "Support/WaitFor.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(WallpaperManagerUpscaleTest, locallyItNeedsNoKeyAndTheCopyIsAPng)
{
    const QString path = putPicture(u"a.JPG"_s);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, path));
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    upscale(path);
    const QString copy = home.library() + u"/wallpaper_2026-01-31_23-59-01.png"_s;
    EXPECT_EQ(statuses, (QStringList{QString(), u"Upscaling to 4K (local)..."_s, u"Wallpaper set!"_s}));
    EXPECT_EQ(contentOf(copy), "4K of " + contentOf(path));
    EXPECT_EQ(manager->currentWallpaperURL(), copy);
    EXPECT_EQ(manager->history(), QStringList{copy});
    EXPECT_EQ(sideFile("prompts.json"), R"({"a.JPG":"a lake","wallpaper_2026-01-31_23-59-01.png":"a lake"})");
    EXPECT_EQ(ImageStore::variant(path), copy);
    EXPECT_EQ(ImageStore::variant(copy), path);
    EXPECT_TRUE(ImageStore::deleteImage(copy));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_FALSE(QFile::exists(copy));
}

TEST_F(WallpaperManagerUpscaleTest, theServiceGetsTheExtensionInLowerCase)
{
    EXPECT_TRUE(Keychain::save(u"K"_s, u"gemini"_s));
    const QString path = putPicture(u"a.PNG"_s);
    const QString photo = putPicture(u"b.JPG"_s);
    start();
    upscale(path);
    upscale(photo);
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    const auto requests = service.requests();
    ASSERT_EQ(requests.size(), 2);
    EXPECT_TRUE(requests.at(0).body.contains(R"("mimeType":"image/png")"));
    EXPECT_TRUE(requests.at(1).body.contains(R"("mimeType":"image/jpeg")"));
}

TEST_F(WallpaperManagerUpscaleTest, aSourceWithoutAPromptGivesACopyWithoutOne)
{
    const QString path = putPicture(u"a.png"_s);
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    upscale(path);
    EXPECT_TRUE(sideFile("prompts.json").isEmpty());
}

TEST_F(WallpaperManagerUpscaleTest, aPictureFromElsewhereHasNothingOfItsNamesakeInTheLibrary)
{
    const QString namesake = putPicture(u"a.png"_s);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, namesake));
    const QString elsewhere = home.path() + u"/Downloads/a.png"_s;
    ASSERT_TRUE(QDir(home.path()).mkpath(u"Downloads"_s) && QFile::copy(namesake, elsewhere));
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    upscale(elsewhere);
    const QString copy = home.library() + u"/wallpaper_2026-01-31_23-59-01.png"_s;
    EXPECT_EQ(manager->currentWallpaperURL(), copy);
    EXPECT_EQ(sideFile("prompts.json"), R"({"a.png":"a lake"})");
    EXPECT_EQ(ImageStore::variant(namesake), std::nullopt);
    EXPECT_EQ(ImageStore::allImages().size(), 2);
    EXPECT_TRUE(ImageStore::deleteImage(copy));
    EXPECT_EQ(ImageStore::allImages(), QStringList{namesake});
    EXPECT_TRUE(QFile::exists(elsewhere));
}

TEST_F(WallpaperManagerUpscaleTest, twoCopiesOfOneSecondShareANameAndBothSourcesLinkToIt)
{
    clock.secondsPerLook = 0;
    const QString first = putPicture(u"a.png"_s);
    const QString second = putPicture(u"b.png"_s);
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    manager->upscaleExistingImage(first);
    manager->upscaleExistingImage(second);
    EXPECT_EQ(manager->upscalingURL(), second);
    manager->waitUntilIdle();
    EXPECT_EQ(sideFile("variants.json"),
              R"({"a.png":"wallpaper_2026-01-31_23-59-00.png","b.png":"wallpaper_2026-01-31_23-59-00.png"})");
    EXPECT_FALSE(manager->isLoading());
}

TEST_F(WallpaperManagerUpscaleTest, aCopyNeverTakesTheNameOfItsSourceWhileTheClockGoesOn)
{
    clock.secondsPerLook = 0;
    const QString path = putPicture(u"wallpaper_2026-01-31_23-59-00.png"_s);
    const QByteArray source = contentOf(path);
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    clock.letWallRun();
    upscale(path);
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_EQ(contentOf(path), source);
    EXPECT_EQ(contentOf(result.file), "4K of " + source);
    EXPECT_EQ(ImageStore::variant(path), result.file);
    EXPECT_EQ(manager->history(), QStringList{result.file});
}

TEST_F(WallpaperManagerUpscaleTest, whileTheClockStandsStillACopyMayReplaceItsSource)
{
    clock.secondsPerLook = 0;
    const QString path = putPicture(u"wallpaper_2026-01-31_23-59-00.png"_s);
    EXPECT_TRUE(ImageStore::savePrompt(u"a lake"_s, path));
    const QByteArray source = contentOf(path);
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    upscale(path);
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_EQ(contentOf(path), "4K of " + source);
    EXPECT_EQ(sideFile("variants.json"),
              R"({"wallpaper_2026-01-31_23-59-00.png":"wallpaper_2026-01-31_23-59-00.png"})");
    EXPECT_EQ(sideFile("prompts.json"), R"({"wallpaper_2026-01-31_23-59-00.png":"a lake"})");
    EXPECT_TRUE(manager->history().isEmpty());
}

TEST_F(WallpaperManagerUpscaleTest, goingWhileTheNextSecondIsWaitedForKeepsTheSource)
{
    clock.secondsPerLook = 0;
    const QString path = putPicture(u"wallpaper_2026-01-31_23-59-00.png"_s);
    const QByteArray source = contentOf(path);
    localUpscale = [this](QByteArray image, std::stop_token,
                          std::function<void(UpscaleProgress)>) -> QCoro::Task<EncodedImage> {
        QTimer::singleShot(0, qApp, [this] { manager.reset(); });
        co_return EncodedImage{"4K of " + image, u"png"_s};
    };
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    manager->upscaleExistingImage(path);
    ASSERT_TRUE(waitFor([this] { return manager == nullptr; }));
    EXPECT_EQ(result.status, u"Upscale failed: Quorvane is quitting"_s);
    EXPECT_EQ(contentOf(path), source);
    EXPECT_EQ(files(), QStringList{imageName(path)});
}

} // namespace quorvane
