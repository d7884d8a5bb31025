#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

class WallpaperManagerUpscaleTest : public ManagerTest
{
  protected:
    void upscale(const QString &path)
    {
        statuses.clear();
        QStringList busyWith;
        const auto connection = QObject::connect(manager.get(), &WallpaperManager::upscalingURLChanged, manager.get(),
                                                 [&] { busyWith.append(manager->upscalingURL()); });
        manager->upscaleExistingImage(path);
        manager->waitUntilIdle();
        QObject::disconnect(connection);
        EXPECT_EQ(busyWith, (QStringList{path, QString()}));
        EXPECT_FALSE(manager->isLoading());
    }

    /// A picture in the library that the service can read.
    [[nodiscard]] QString putPicture(const QString &name) const
    {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::red);
        const QString path = ImageStore::directory() + QLatin1Char('/') + name;
        EXPECT_TRUE(image.save(path));
        return path;
    }
};

TEST_F(WallpaperManagerUpscaleTest, withoutAMethodAndAKeyItSaysSoAndWritesNothing)
{
    const QString path = putPicture(QStringLiteral("a.png"));
    start();
    upscale(path);
    EXPECT_EQ(manager->status(), QStringLiteral("No Gemini API key — switch to Local upscale in Settings > Advanced"));
    EXPECT_TRUE(manager->isError());
    EXPECT_EQ(files(), QStringList{QStringLiteral("a.png")});
}

TEST_F(WallpaperManagerUpscaleTest, locallyItNeedsNoKeyAndTheCopyIsAPng)
{
    const QString path = putPicture(QStringLiteral("a.JPG"));
    ImageStore::savePrompt(QStringLiteral("a lake"), path);
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    upscale(path);
    const QString copy = home.library() + QStringLiteral("/wallpaper_2026-01-31_23-59-01.png");
    EXPECT_EQ(statuses,
              (QStringList{QString(), QStringLiteral("Upscaling to 4K (local)..."), QStringLiteral("Wallpaper set!")}));
    EXPECT_EQ(contentOf(copy), "4K of " + contentOf(path));
    EXPECT_EQ(manager->currentWallpaperURL(), copy);
    EXPECT_EQ(manager->history(), QStringList{copy});
    EXPECT_EQ(sideFile("prompts.json"), R"({"a.JPG":"a lake","wallpaper_2026-01-31_23-59-01.png":"a lake"})");
    EXPECT_EQ(ImageStore::variant(path), copy);
    EXPECT_EQ(ImageStore::variant(copy), path);
    ImageStore::deleteImage(copy);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_FALSE(QFile::exists(copy));
}

TEST_F(WallpaperManagerUpscaleTest, theServiceGetsTheExtensionInLowerCase)
{
    Keychain::save(QStringLiteral("K"), QStringLiteral("gemini"));
    const QString path = putPicture(QStringLiteral("a.PNG"));
    const QString photo = putPicture(QStringLiteral("b.JPG"));
    start();
    upscale(path);
    upscale(photo);
    EXPECT_EQ(manager->status(), QStringLiteral("Wallpaper set!"));
    const auto requests = service.requests();
    ASSERT_EQ(requests.size(), 2);
    EXPECT_TRUE(requests.at(0).body.contains(R"("mimeType":"image/png")"));
    EXPECT_TRUE(requests.at(1).body.contains(R"("mimeType":"image/jpeg")"));
}

TEST_F(WallpaperManagerUpscaleTest, aSourceWithoutAPromptGivesACopyWithoutOne)
{
    const QString path = putPicture(QStringLiteral("a.png"));
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    upscale(path);
    EXPECT_TRUE(sideFile("prompts.json").isEmpty());
}

TEST_F(WallpaperManagerUpscaleTest, anUnreadableSourceIsAnError)
{
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    upscale(home.library() + QStringLiteral("/gone.png"));
    EXPECT_TRUE(manager->status().startsWith(QStringLiteral("Upscale failed: No such file")))
        << manager->status().toStdString();
    EXPECT_TRUE(manager->isError());
}

TEST_F(WallpaperManagerUpscaleTest, aFailedUpscaleIsAnErrorAndTheSourceStays)
{
    localUpscale = [](QByteArray, std::stop_token, std::function<void(UpscaleProgress)>) -> QCoro::Task<UpscaledImage> {
        throw ProviderError::invalidResponse(QStringLiteral("RealESRGAN model not found in app bundle"));
        co_return UpscaledImage();
    };
    const QString path = putPicture(QStringLiteral("a.png"));
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    upscale(path);
    EXPECT_EQ(manager->status(),
              QStringLiteral("Upscale failed: Invalid response: RealESRGAN model not found in app bundle"));
    EXPECT_TRUE(manager->isError());
    EXPECT_EQ(files(), QStringList{QStringLiteral("a.png")});
}

TEST_F(WallpaperManagerUpscaleTest, theServicesErrorIsToldWithBothPrefixes)
{
    Keychain::save(QStringLiteral("K"), QStringLiteral("gemini"));
    Misbehaviour refusal(Misbehaviour::Kind::ErrorObject);
    refusal.text = "no";
    service.setMisbehaviour(refusal);
    const QString path = putPicture(QStringLiteral("a.png"));
    start();
    upscale(path);
    EXPECT_EQ(manager->status(), QStringLiteral("Upscale failed: API error: Upscale failed: no"));
}

TEST_F(WallpaperManagerUpscaleTest, aCopyThatCannotBeSavedIsAnError)
{
    clock.secondsPerLook = 0;
    const QString path = putPicture(QStringLiteral("a.png"));
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    ASSERT_TRUE(QDir(home.library()).mkpath(QStringLiteral("wallpaper_2026-01-31_23-59-00.png/inside")));
    upscale(path);
    EXPECT_EQ(manager->status(), QStringLiteral("Failed to save upscaled image"));
    EXPECT_TRUE(manager->isError());
    EXPECT_TRUE(sideFile("variants.json").isEmpty());
    EXPECT_TRUE(desktop.shown().isEmpty());
}

TEST_F(WallpaperManagerUpscaleTest, twoCopiesOfOneSecondShareANameAndBothSourcesLinkToIt)
{
    clock.secondsPerLook = 0;
    const QString first = putPicture(QStringLiteral("a.png"));
    const QString second = putPicture(QStringLiteral("b.png"));
    start();
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    manager->upscaleExistingImage(first);
    manager->upscaleExistingImage(second);
    EXPECT_EQ(manager->upscalingURL(), second);
    manager->waitUntilIdle();
    EXPECT_EQ(sideFile("variants.json"),
              R"({"a.png":"wallpaper_2026-01-31_23-59-00.png","b.png":"wallpaper_2026-01-31_23-59-00.png"})");
    EXPECT_FALSE(manager->isLoading());
}

} // namespace quorvane
