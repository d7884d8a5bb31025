#include "Manager/SettingsKeys.h"
#include "Platform/Threads/Worker.h"
#include "Storage/SideFile.h"
#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include <condition_variable>
#include <mutex>

using namespace Qt::StringLiterals;

namespace quorvane {

class WallpaperManagerGenerateTest : public ManagerTest
{
  protected:
    WallpaperManagerGenerateTest()
    {
        for (const char *id : {"gemini", "grok", "openai"}) {
            EXPECT_TRUE(Keychain::save(u"key of "_s + QLatin1String(id), QLatin1String(id)));
        }
    }

    [[nodiscard]] QString inLibrary(const char *name) const { return home.library() + '/'_L1 + QLatin1String(name); }

    static QByteArray bodyOf(const HttpRequest &request) { return request.body; }
};

TEST_F(WallpaperManagerGenerateTest, aPromptBecomesASavedPictureWithItsPromptAndTheWallpaper)
{
    start();
    generate(u"a quiet lake"_s);
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_FALSE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    const QString path = inLibrary("wallpaper_2026-01-31_23-59-01.png");
    EXPECT_EQ(manager->history(), QStringList{path});
    EXPECT_EQ(manager->currentWallpaperURL(), path);
    EXPECT_EQ(desktop.shown(), QStringList{path});
    EXPECT_EQ(result.file, path);
    EXPECT_EQ(QImage(path).size(), QSize(8, 8));
    EXPECT_EQ(sideFile("prompts.json"), R"({"wallpaper_2026-01-31_23-59-01.png":"a quiet lake"})");
    EXPECT_EQ(statuses, (QStringList{QString(), u"Wallpaper set!"_s}));
    EXPECT_EQ(defaults->text(SettingsKeys::kCurrentWallpaperPath), path);
}

TEST_F(WallpaperManagerGenerateTest, geminiWith4KMakesOneFileAndNoLink)
{
    start().setFourKEnabled(true);
    generate();
    EXPECT_EQ(files(), (QStringList{u"prompts.json"_s, u"wallpaper_2026-01-31_23-59-01.png"_s}));
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
}

TEST_F(WallpaperManagerGenerateTest, grokWith4KLocallySavesTheOriginalThenTheUpscaledPictureAndLinksThem)
{
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    generate();
    const QString original = u"wallpaper_2026-01-31_23-59-01.jpg"_s;
    const QString upscaled = u"wallpaper_2026-01-31_23-59-02.png"_s;
    EXPECT_EQ(sideFile("variants.json"), (u"{\"%1\":\"%2\"}"_s.arg(original, upscaled)).toUtf8());
    EXPECT_EQ(sideFile("prompts.json"), (u"{\"%1\":\"a lake\",\"%2\":\"a lake\"}"_s.arg(original, upscaled)).toUtf8());
    EXPECT_EQ(contentOf(inLibrary(upscaled.toLatin1())), "4K of " + contentOf(inLibrary(original.toLatin1())));
    EXPECT_EQ(manager->history(), QStringList{inLibrary(upscaled.toLatin1())});
    EXPECT_EQ(manager->currentWallpaperURL(), inLibrary(upscaled.toLatin1()));
    EXPECT_EQ(result.original, inLibrary(original.toLatin1()));
    EXPECT_EQ(statuses, (QStringList{QString(), u"Upscaling to 4K (local)..."_s, u"Wallpaper set!"_s}));
    EXPECT_FALSE(manager->progress());
}

TEST_F(WallpaperManagerGenerateTest, grokWith4KRemotelyAsksGemini)
{
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    generate();
    const auto requests = service.requests();
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests.at(0).header("Authorization"), "Bearer key of grok");
    EXPECT_EQ(requests.at(1).path, "/v1beta/models/gemini-3-pro-image-preview:generateContent");
    EXPECT_EQ(requests.at(1).header("x-goog-api-key"), "key of gemini");
    EXPECT_EQ(statuses, (QStringList{QString(), u"Upscaling to 4K..."_s, u"Wallpaper set!"_s}));
    EXPECT_EQ(manager->history(), QStringList{inLibrary("wallpaper_2026-01-31_23-59-02.png")});
}

TEST_F(WallpaperManagerGenerateTest, withoutAGeminiKeyTheOriginalIsSavedTwiceAndLinkedWithoutAWord)
{
    EXPECT_TRUE(Keychain::remove(u"gemini"_s));
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    generate();
    const QByteArray first = contentOf(inLibrary("wallpaper_2026-01-31_23-59-01.jpg"));
    EXPECT_FALSE(first.isEmpty());
    EXPECT_EQ(contentOf(inLibrary("wallpaper_2026-01-31_23-59-02.jpg")), first);
    EXPECT_EQ(sideFile("variants.json"),
              R"({"wallpaper_2026-01-31_23-59-01.jpg":"wallpaper_2026-01-31_23-59-02.jpg"})");
    EXPECT_EQ(statuses, (QStringList{QString(), u"Wallpaper set!"_s}));
    EXPECT_EQ(service.requests().size(), 1);
}

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

TEST_F(WallpaperManagerGenerateTest, anEmptyPromptGoesOutAsItIs)
{
    start();
    generate(QString());
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_TRUE(service.requests().first().body.contains(R"({"text":""})"));
}

TEST_F(WallpaperManagerGenerateTest, aProvidersErrorLeavesEverythingAsItWas)
{
    (void)putImage(u"before.png"_s);
    start();
    const QStringList before = manager->history();
    Misbehaviour quota(Misbehaviour::Kind::ErrorObject);
    quota.status = 429;
    quota.text = "quota exceeded";
    service.setMisbehaviour(quota);
    generate();
    EXPECT_EQ(manager->status(), u"API error: quota exceeded"_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    EXPECT_EQ(manager->history(), before);
    EXPECT_EQ(files(), QStringList{u"before.png"_s});
    EXPECT_TRUE(desktop.shown().isEmpty());
}

TEST_F(WallpaperManagerGenerateTest, withoutAKeyNothingIsAsked)
{
    EXPECT_TRUE(Keychain::remove(u"grok"_s));
    start().setProviderOverride(u"grok"_s);
    generate();
    EXPECT_EQ(manager->status(), u"Missing Grok API key — open Settings (⌘,)"_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    EXPECT_TRUE(service.requests().isEmpty());
}

TEST_F(WallpaperManagerGenerateTest, anAddressThatIsNotAllowedIsToldBeforeTheKeyIsLookedFor)
{
    EXPECT_TRUE(Keychain::remove(u"gemini"_s));
    qputenv("QUORVANE_GEMINI_BASE_URL", "http://service.example");
    start();
    generate();
    EXPECT_EQ(manager->status(), u"QUORVANE_GEMINI_BASE_URL must be an https address, or http on this machine."_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
}

TEST_F(WallpaperManagerGenerateTest, aFinalPictureThatCannotBeSavedIsAnError)
{
    start().waitUntilIdle();
    ASSERT_TRUE(QDir(home.library()).removeRecursively());
    QFile inTheWay(home.library());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    generate();
    EXPECT_EQ(manager->status(), u"Failed to save image"_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    EXPECT_TRUE(desktop.shown().isEmpty());
}

TEST_F(WallpaperManagerGenerateTest, anOriginalThatCannotBeSavedLeavesNoLink)
{
    clock.secondsPerLook = 0;
    start().setFourKEnabled(true);
    manager->setProviderOverride(u"grok"_s);
    defaults->set(SettingsKeys::kUpscaleMethod, u"local"_s);
    // The original's name is taken by a folder; the upscaled picture has another extension.
    ASSERT_TRUE(QDir(home.library()).mkpath(u"wallpaper_2026-01-31_23-59-00.jpg/inside"_s));
    generate();
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_EQ(sideFile("prompts.json"), R"({"wallpaper_2026-01-31_23-59-00.png":"a lake"})");
    EXPECT_TRUE(sideFile("variants.json").isEmpty());
    EXPECT_EQ(result.original, QString());
}

TEST_F(WallpaperManagerGenerateTest, withoutAScreenThePictureIsSavedAllTheSame)
{
    desktop.attached.clear();
    start();
    generate();
    EXPECT_EQ(manager->status(), u"No screen found"_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    EXPECT_EQ(manager->history(), QStringList{inLibrary("wallpaper_2026-01-31_23-59-01.png")});
    EXPECT_EQ(manager->currentWallpaperURL(), QString());
    EXPECT_EQ(result.file, inLibrary("wallpaper_2026-01-31_23-59-01.png"));
}

TEST_F(WallpaperManagerGenerateTest, aScreenThatRefusesIsToldInTheDesktopsWords)
{
    desktop.refusal = u"out of paint"_s;
    start();
    generate();
    EXPECT_EQ(manager->status(), u"Failed: out of paint"_s);
    EXPECT_TRUE(manager->isError());
    EXPECT_EQ(manager->history().size(), 1);
    EXPECT_EQ(manager->currentWallpaperURL(), QString());
}

TEST_F(WallpaperManagerGenerateTest, wants4KIsWhatHoldsAtTheMomentOfTheCall)
{
    start().setProviderOverride(u"openai"_s);
    generate();
    manager->setFourKEnabled(true);
    generate();
    const auto requests = service.requests();
    ASSERT_EQ(requests.size(), 2);
    EXPECT_TRUE(requests.at(0).body.contains(R"("size":"1536x1024")"));
    EXPECT_TRUE(requests.at(1).body.contains(R"("size":"3840x2160")"));
}

TEST_F(WallpaperManagerGenerateTest, openAIsOlderModelsAreUpscaled)
{
    start().setProviderOverride(u"openai"_s);
    manager->setFourKEnabled(true);
    defaults->set(SettingsKeys::selectedModel(u"openai"_s), u"gpt-image-1"_s);
    generate();
    ASSERT_EQ(service.requests().size(), 2);
    EXPECT_TRUE(service.requests().first().body.contains(R"("moderation":"low")"));
    EXPECT_TRUE(sideFile("variants.json").contains("wallpaper_2026-01-31_23-59-01.png"));
}

TEST_F(WallpaperManagerGenerateTest, aStaleModelIsNotSent)
{
    start().setProviderOverride(u"openai"_s);
    defaults->set(SettingsKeys::selectedModel(u"openai"_s), u"gpt-image-0"_s);
    generate();
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_TRUE(service.requests().first().body.contains(R"("model":"gpt-image-2")"));
}

TEST_F(WallpaperManagerGenerateTest, nsfwPromptsGoToGrokUnlessAnotherProviderIsChosen)
{
    start().setNsfwEnabled(true);
    generate();
    manager->setProviderOverride(u"openai"_s);
    generate();
    ASSERT_EQ(service.requests().size(), 2);
    EXPECT_TRUE(service.requests().at(0).body.contains("grok-imagine-image"));
    EXPECT_TRUE(service.requests().at(1).body.contains("gpt-image-2"));
}

TEST_F(WallpaperManagerGenerateTest, twoRunsAtOnceAreBothCarriedOut)
{
    start();
    manager->setPrompt(u"first"_s);
    manager->generateAndSet();
    manager->setPrompt(u"second"_s);
    manager->generateAndSet();
    manager->waitUntilIdle();
    EXPECT_EQ(manager->history().size(), 2);
    EXPECT_TRUE(sideFile("prompts.json").contains("first"));
    EXPECT_TRUE(sideFile("prompts.json").contains("second"));
    EXPECT_FALSE(manager->isLoading());
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

TEST_F(WallpaperManagerGenerateTest, theKeyStandsInItsHeaderAndNowhereElse)
{
    start();
    generate();
    manager->setProviderOverride(u"grok"_s);
    generate();
    const auto requests = service.requests();
    for (const HttpRequest &request : requests) {
        EXPECT_FALSE(request.path.contains("key of"));
        EXPECT_FALSE(request.body.contains("key of"));
        int headers = 0;
        for (const auto &[name, value] : request.headers) {
            headers += value.contains("key of") ? 1 : 0;
        }
        EXPECT_EQ(headers, 1);
    }
    EXPECT_TRUE(defaults->sync());
    EXPECT_FALSE(contentOf(UserDefaults::defaultPath()).contains("key of"));
}

TEST_F(WallpaperManagerGenerateTest, aKeyThatWouldBeginAnotherHeaderIsNotSent)
{
    EXPECT_TRUE(Keychain::save(u"K\r\nX-Evil: 1"_s, u"gemini"_s));
    start();
    generate();
    EXPECT_EQ(manager->status(),
              u"Network error: The stored API key has a character that cannot be sent. Save the key again."_s);
    EXPECT_TRUE(service.requests().isEmpty());
}

} // namespace quorvane
