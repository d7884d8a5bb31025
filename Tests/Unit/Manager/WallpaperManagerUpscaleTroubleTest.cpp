#include "Unit/Manager/WallpaperManagerUpscaleFixture.h"

#include "Manager/SettingsKeys.h"

#include <stdexcept>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(WallpaperManagerUpscaleTest, withoutAMethodAndAKeyItSaysSoAndWritesNothing)
{
    const QString path = putPicture(u"a.png"_s);
    start();
    upscale(path);
    EXPECT_EQ(manager->status(), u"No Gemini API key — switch to Local upscale in Settings > Advanced"_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_EQ(files(), QStringList{u"a.png"_s});
}

TEST_F(WallpaperManagerUpscaleTest, anAddressThatIsNotAllowedIsToldBeforeTheKeyIsLookedFor)
{
    const QString path = putPicture(u"a.png"_s);
    qputenv("QUORVANE_GEMINI_BASE_URL", "http://service.example");
    start();
    for (const bool hasKey : {false, true}) {
        if (hasKey) {
            EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
        }
        upscale(path);
        EXPECT_EQ(manager->status(), u"QUORVANE_GEMINI_BASE_URL must be an https address, or http on this machine."_s);
        EXPECT_TRUE(manager->isError());
        EXPECT_EQ(files(), QStringList{u"a.png"_s});
    }
    // Nothing goes there locally.
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    upscale(path);
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
}

TEST_F(WallpaperManagerUpscaleTest, anUpscalerThatFailsWithoutAWordFails)
{
    const QString path = putPicture(u"a.png"_s);
    localUpscale = [](QByteArray, std::stop_token, std::function<void(UpscaleProgress)>) -> QCoro::Task<EncodedImage> {
        throw std::runtime_error("");
        co_return EncodedImage();
    };
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    upscale(path);
    EXPECT_EQ(manager->status(), u"Upscale failed: The reason is not known."_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_EQ(files(), QStringList{u"a.png"_s});
}

TEST_F(WallpaperManagerUpscaleTest, aNamedPipeIsNotWaitedFor)
{
    const QString pipe = ImageStore::directory() + u"/pipe.png"_s;
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    upscale(pipe);
    EXPECT_EQ(manager->status(), u"Upscale failed: Not a regular file"_s);
}

TEST_F(WallpaperManagerUpscaleTest, anUnreadableSourceIsAnError)
{
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    upscale(home.library() + u"/gone.png"_s);
    EXPECT_TRUE(manager->status().startsWith(u"Upscale failed: No such file"_s)) << manager->status().toStdString();
    EXPECT_TRUE(manager->isError());
}

TEST_F(WallpaperManagerUpscaleTest, aFailedUpscaleIsAnErrorAndTheSourceStays)
{
    localUpscale = [](QByteArray, std::stop_token, std::function<void(UpscaleProgress)>) -> QCoro::Task<EncodedImage> {
        throw ProviderError::invalidResponse(u"RealESRGAN model not found in app bundle"_s);
        co_return EncodedImage();
    };
    const QString path = putPicture(u"a.png"_s);
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    upscale(path);
    EXPECT_EQ(manager->status(), u"Upscale failed: Invalid response: RealESRGAN model not found in app bundle"_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_EQ(files(), QStringList{u"a.png"_s});
}

TEST_F(WallpaperManagerUpscaleTest, theServicesErrorIsToldWithBothPrefixes)
{
    EXPECT_TRUE(Keychain::save(u"K"_s, u"gemini"_s));
    Misbehaviour refusal(Misbehaviour::Kind::ErrorObject);
    refusal.text = "no";
    service.setMisbehaviour(refusal);
    const QString path = putPicture(u"a.png"_s);
    start();
    upscale(path);
    EXPECT_EQ(manager->status(), u"Upscale failed: API error: Upscale failed: no"_s);
}

TEST_F(WallpaperManagerUpscaleTest, aCopyThatCannotBeSavedIsAnError)
{
    clock.secondsPerLook = 0;
    const QString path = putPicture(u"a.png"_s);
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    ASSERT_TRUE(QDir(home.library()).mkpath(u"wallpaper_2026-01-31_23-59-00.png/inside"_s));
    upscale(path);
    EXPECT_EQ(manager->status(), u"Failed to save upscaled image"_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_TRUE(sideFile("variants.json").isEmpty());
    EXPECT_TRUE(desktop.shown().isEmpty());
}

} // namespace quorvane
