#include "Unit/Manager/Generate/WallpaperManagerGenerateFixture.h"

#include "Manager/SettingsKeys.h"

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(WallpaperManagerGenerateTest, anUpscaleThatFailsAtOnceLeavesTwoPicturesToo)
{
    clock.secondsPerLook = 0;
    localUpscale = [this](QByteArray, std::stop_token,
                          std::function<void(UpscaleProgress)>) -> QCoro::Task<EncodedImage> {
        clock.letWallRun(); // The original has its name, and no millisecond of its second is gone.
        throw ProviderError::invalidResponse(u"no"_s);
        co_return EncodedImage();
    };
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    generate();
    EXPECT_EQ(result.original, inLibrary("wallpaper_2026-01-31_23-59-00.jpg"));
    EXPECT_NE(result.file, result.original);
    EXPECT_EQ(ImageStore::variant(result.original), result.file);
    EXPECT_EQ(manager->history(), QStringList{result.file});
}

TEST_F(WallpaperManagerGenerateTest, anAddressThatIsNotAllowedForTheUpscaleIsToldBeforeTheKeyIsLookedFor)
{
    qputenv("QUORVANE_GEMINI_BASE_URL", "http://service.example");
    EXPECT_TRUE(Keychain::save(u"KEY"_s, u"grok"_s));
    start().setProviderOverride(u"grok"_s);
    manager->setFourKEnabled(true);
    generate();
    const QString warning =
        u"Upscale failed, using original — QUORVANE_GEMINI_BASE_URL must be an https address, or http on this machine."_s;
    EXPECT_TRUE(statuses.contains(warning)) << statuses.join(u" | "_s).toStdString();
    EXPECT_FALSE(manager->isError());
}

TEST_F(WallpaperManagerGenerateTest, aFailedUpscaleIsAWarningAndTheOriginalIsUsed)
{
    localUpscale = [](QByteArray, std::stop_token, std::function<void(UpscaleProgress)>) -> QCoro::Task<EncodedImage> {
        throw ProviderError::invalidResponse(u"RealESRGAN model not found in app bundle"_s);
        co_return EncodedImage();
    };
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    QList<bool> errors;
    QObject::connect(manager.get(), &WallpaperManager::statusChanged, manager.get(),
                     [&] { errors.append(manager->isError()); });
    generate();
    EXPECT_EQ(statuses, (QStringList{QString(), u"Upscaling to 4K (local)..."_s,
                                     u"Local upscale failed, using original — Invalid response: RealESRGAN model not "
                                     "found in app bundle"_s,
                                     u"Wallpaper set!"_s}));
    EXPECT_FALSE(errors.contains(true));
    EXPECT_EQ(contentOf(inLibrary("wallpaper_2026-01-31_23-59-01.jpg")),
              contentOf(inLibrary("wallpaper_2026-01-31_23-59-02.jpg")));
    EXPECT_EQ(sideFile("variants.json"),
              R"({"wallpaper_2026-01-31_23-59-01.jpg":"wallpaper_2026-01-31_23-59-02.jpg"})");
}

TEST_F(WallpaperManagerGenerateTest, aFailedRemoteUpscaleIsAWarningToo)
{
    service.setResponder([](const HttpRequest &request) -> std::optional<WireScript> {
        if (request.path.contains("generateContent")) {
            return HttpAnswer::json(503, R"({"error":{"message":"overloaded"}})");
        }
        return std::nullopt;
    });
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    generate();
    EXPECT_EQ(statuses, (QStringList{QString(), u"Upscaling to 4K..."_s,
                                     u"Upscale failed, using original — API error: Upscale failed: overloaded"_s,
                                     u"Wallpaper set!"_s}));
}

} // namespace quorvane
