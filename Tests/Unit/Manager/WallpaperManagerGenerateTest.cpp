#include "Manager/SettingsKeys.h"
#include "Platform/Threads/Worker.h"
#include "Support/WaitFor.h"
#include "Unit/Manager/ManagerFixture.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <condition_variable>
#include <mutex>

namespace quorvane {

class WallpaperManagerGenerateTest : public ManagerTest
{
  protected:
    WallpaperManagerGenerateTest()
    {
        for (const char *id : {"gemini", "grok", "openai"}) {
            Keychain::save(QStringLiteral("key of ") + QLatin1String(id), QLatin1String(id));
        }
    }

    [[nodiscard]] QString inLibrary(const char *name) const
    {
        return home.library() + QLatin1Char('/') + QLatin1String(name);
    }

    static QByteArray bodyOf(const HttpRequest &request) { return request.body; }
};

TEST_F(WallpaperManagerGenerateTest, aPromptBecomesASavedPictureWithItsPromptAndTheWallpaper)
{
    start();
    generate(QStringLiteral("a quiet lake"));
    EXPECT_EQ(manager->status(), QStringLiteral("Wallpaper set!"));
    EXPECT_FALSE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    const QString path = inLibrary("wallpaper_2026-01-31_23-59-01.png");
    EXPECT_EQ(manager->history(), QStringList{path});
    EXPECT_EQ(manager->currentWallpaperURL(), path);
    EXPECT_EQ(desktop.shown(), QStringList{path});
    EXPECT_EQ(result.file, path);
    EXPECT_EQ(QImage(path).size(), QSize(8, 8));
    EXPECT_EQ(sideFile("prompts.json"), R"({"wallpaper_2026-01-31_23-59-01.png":"a quiet lake"})");
    EXPECT_EQ(statuses, (QStringList{QString(), QStringLiteral("Wallpaper set!")}));
    EXPECT_EQ(defaults->text(SettingsKeys::kCurrentWallpaperPath), path);
}

TEST_F(WallpaperManagerGenerateTest, geminiWith4KMakesOneFileAndNoLink)
{
    start().setFourKEnabled(true);
    generate();
    EXPECT_EQ(files(),
              (QStringList{QStringLiteral("prompts.json"), QStringLiteral("wallpaper_2026-01-31_23-59-01.png")}));
    EXPECT_EQ(manager->status(), QStringLiteral("Wallpaper set!"));
}

TEST_F(WallpaperManagerGenerateTest, grokWith4KLocallySavesTheOriginalThenTheUpscaledPictureAndLinksThem)
{
    start().setFourKEnabled(true);
    manager->setProviderOverride(QStringLiteral("grok"));
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    generate();
    const QString original = QStringLiteral("wallpaper_2026-01-31_23-59-01.jpg");
    const QString upscaled = QStringLiteral("wallpaper_2026-01-31_23-59-02.png");
    EXPECT_EQ(sideFile("variants.json"), (QStringLiteral("{\"%1\":\"%2\"}").arg(original, upscaled)).toUtf8());
    EXPECT_EQ(sideFile("prompts.json"),
              (QStringLiteral("{\"%1\":\"a lake\",\"%2\":\"a lake\"}").arg(original, upscaled)).toUtf8());
    EXPECT_EQ(contentOf(inLibrary(upscaled.toLatin1())), "4K of " + contentOf(inLibrary(original.toLatin1())));
    EXPECT_EQ(manager->history(), QStringList{inLibrary(upscaled.toLatin1())});
    EXPECT_EQ(manager->currentWallpaperURL(), inLibrary(upscaled.toLatin1()));
    EXPECT_EQ(result.original, inLibrary(original.toLatin1()));
    EXPECT_EQ(statuses,
              (QStringList{QString(), QStringLiteral("Upscaling to 4K (local)..."), QStringLiteral("Wallpaper set!")}));
    EXPECT_FALSE(manager->progress());
}

TEST_F(WallpaperManagerGenerateTest, grokWith4KRemotelyAsksGemini)
{
    start().setFourKEnabled(true);
    manager->setProviderOverride(QStringLiteral("grok"));
    generate();
    const auto requests = service.requests();
    ASSERT_EQ(requests.size(), 2);
    EXPECT_EQ(requests.at(0).header("Authorization"), "Bearer key of grok");
    EXPECT_EQ(requests.at(1).path, "/v1beta/models/gemini-3-pro-image-preview:generateContent");
    EXPECT_EQ(requests.at(1).header("x-goog-api-key"), "key of gemini");
    EXPECT_EQ(statuses,
              (QStringList{QString(), QStringLiteral("Upscaling to 4K..."), QStringLiteral("Wallpaper set!")}));
    EXPECT_EQ(manager->history(), QStringList{inLibrary("wallpaper_2026-01-31_23-59-02.png")});
}

TEST_F(WallpaperManagerGenerateTest, withoutAGeminiKeyTheOriginalIsSavedTwiceAndLinkedWithoutAWord)
{
    Keychain::remove(QStringLiteral("gemini"));
    start().setFourKEnabled(true);
    manager->setProviderOverride(QStringLiteral("grok"));
    generate();
    const QByteArray first = contentOf(inLibrary("wallpaper_2026-01-31_23-59-01.jpg"));
    EXPECT_FALSE(first.isEmpty());
    EXPECT_EQ(contentOf(inLibrary("wallpaper_2026-01-31_23-59-02.jpg")), first);
    EXPECT_EQ(sideFile("variants.json"),
              R"({"wallpaper_2026-01-31_23-59-01.jpg":"wallpaper_2026-01-31_23-59-02.jpg"})");
    EXPECT_EQ(statuses, (QStringList{QString(), QStringLiteral("Wallpaper set!")}));
    EXPECT_EQ(service.requests().size(), 1);
}

TEST_F(WallpaperManagerGenerateTest, twoSavesInOneSecondLinkThePictureToItselfAndHideIt)
{
    clock.secondsPerLook = 0;
    Keychain::remove(QStringLiteral("gemini"));
    start().setFourKEnabled(true);
    manager->setProviderOverride(QStringLiteral("grok"));
    generate();
    EXPECT_EQ(sideFile("variants.json"),
              R"({"wallpaper_2026-01-31_23-59-00.jpg":"wallpaper_2026-01-31_23-59-00.jpg"})");
    EXPECT_TRUE(manager->history().isEmpty());
    EXPECT_EQ(manager->status(), QStringLiteral("Wallpaper set!"));
    EXPECT_EQ(manager->currentWallpaperURL(), inLibrary("wallpaper_2026-01-31_23-59-00.jpg"));
}

TEST_F(WallpaperManagerGenerateTest, aFailedUpscaleIsAWarningAndTheOriginalIsUsed)
{
    localUpscale = [](QByteArray, std::stop_token, std::function<void(UpscaleProgress)>) -> QCoro::Task<UpscaledImage> {
        throw ProviderError::invalidResponse(QStringLiteral("RealESRGAN model not found in app bundle"));
        co_return UpscaledImage();
    };
    start().setFourKEnabled(true);
    manager->setProviderOverride(QStringLiteral("grok"));
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    QList<bool> errors;
    QObject::connect(manager.get(), &WallpaperManager::statusChanged, manager.get(),
                     [&] { errors.append(manager->isError()); });
    generate();
    EXPECT_EQ(
        statuses,
        (QStringList{QString(), QStringLiteral("Upscaling to 4K (local)..."),
                     QStringLiteral("Local upscale failed, using original — Invalid response: RealESRGAN model not "
                                    "found in app bundle"),
                     QStringLiteral("Wallpaper set!")}));
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
    manager->setProviderOverride(QStringLiteral("grok"));
    generate();
    EXPECT_EQ(statuses,
              (QStringList{QString(), QStringLiteral("Upscaling to 4K..."),
                           QStringLiteral("Upscale failed, using original — API error: Upscale failed: overloaded"),
                           QStringLiteral("Wallpaper set!")}));
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
    (void)putImage(QStringLiteral("before.png"));
    start();
    const QStringList before = manager->history();
    Misbehaviour quota(Misbehaviour::Kind::ErrorObject);
    quota.status = 429;
    quota.text = "quota exceeded";
    service.setMisbehaviour(quota);
    generate();
    EXPECT_EQ(manager->status(), QStringLiteral("API error: quota exceeded"));
    EXPECT_TRUE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    EXPECT_EQ(manager->history(), before);
    EXPECT_EQ(files(), QStringList{QStringLiteral("before.png")});
    EXPECT_TRUE(desktop.shown().isEmpty());
}

TEST_F(WallpaperManagerGenerateTest, withoutAKeyNothingIsAsked)
{
    Keychain::remove(QStringLiteral("grok"));
    start().setProviderOverride(QStringLiteral("grok"));
    generate();
    EXPECT_EQ(manager->status(), QStringLiteral("Missing Grok API key — open Settings (⌘,)"));
    EXPECT_TRUE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    EXPECT_TRUE(service.requests().isEmpty());
}

TEST_F(WallpaperManagerGenerateTest, anAddressThatIsNotAllowedIsToldBeforeTheKeyIsLookedFor)
{
    Keychain::remove(QStringLiteral("gemini"));
    qputenv("QUORVANE_GEMINI_BASE_URL", "http://service.example");
    start();
    generate();
    EXPECT_EQ(manager->status(),
              QStringLiteral("QUORVANE_GEMINI_BASE_URL must be an https address, or http on this machine."));
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
    EXPECT_EQ(manager->status(), QStringLiteral("Failed to save image"));
    EXPECT_TRUE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    EXPECT_TRUE(desktop.shown().isEmpty());
}

TEST_F(WallpaperManagerGenerateTest, anOriginalThatCannotBeSavedLeavesNoLink)
{
    clock.secondsPerLook = 0;
    start().setFourKEnabled(true);
    manager->setProviderOverride(QStringLiteral("grok"));
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    // The original's name is taken by a folder; the upscaled picture has another extension.
    ASSERT_TRUE(QDir(home.library()).mkpath(QStringLiteral("wallpaper_2026-01-31_23-59-00.jpg/inside")));
    generate();
    EXPECT_EQ(manager->status(), QStringLiteral("Wallpaper set!"));
    EXPECT_EQ(sideFile("prompts.json"), R"({"wallpaper_2026-01-31_23-59-00.png":"a lake"})");
    EXPECT_TRUE(sideFile("variants.json").isEmpty());
    EXPECT_EQ(result.original, QString());
}

TEST_F(WallpaperManagerGenerateTest, withoutAScreenThePictureIsSavedAllTheSame)
{
    desktop.attached.clear();
    start();
    generate();
    EXPECT_EQ(manager->status(), QStringLiteral("No screen found"));
    EXPECT_TRUE(manager->isError());
    EXPECT_FALSE(manager->isLoading());
    EXPECT_EQ(manager->history(), QStringList{inLibrary("wallpaper_2026-01-31_23-59-01.png")});
    EXPECT_EQ(manager->currentWallpaperURL(), QString());
    EXPECT_EQ(result.file, inLibrary("wallpaper_2026-01-31_23-59-01.png"));
}

TEST_F(WallpaperManagerGenerateTest, aScreenThatRefusesIsToldInTheDesktopsWords)
{
    desktop.refusal = QStringLiteral("out of paint");
    start();
    generate();
    EXPECT_EQ(manager->status(), QStringLiteral("Failed: out of paint"));
    EXPECT_TRUE(manager->isError());
    EXPECT_EQ(manager->history().size(), 1);
    EXPECT_EQ(manager->currentWallpaperURL(), QString());
}

TEST_F(WallpaperManagerGenerateTest, wants4KIsWhatHoldsAtTheMomentOfTheCall)
{
    start().setProviderOverride(QStringLiteral("openai"));
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
    start().setProviderOverride(QStringLiteral("openai"));
    manager->setFourKEnabled(true);
    defaults->set(SettingsKeys::selectedModel(QStringLiteral("openai")), QStringLiteral("gpt-image-1"));
    generate();
    ASSERT_EQ(service.requests().size(), 2);
    EXPECT_TRUE(service.requests().first().body.contains(R"("moderation":"low")"));
    EXPECT_TRUE(sideFile("variants.json").contains("wallpaper_2026-01-31_23-59-01.png"));
}

TEST_F(WallpaperManagerGenerateTest, aStaleModelIsNotSent)
{
    start().setProviderOverride(QStringLiteral("openai"));
    defaults->set(SettingsKeys::selectedModel(QStringLiteral("openai")), QStringLiteral("gpt-image-0"));
    generate();
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_TRUE(service.requests().first().body.contains(R"("model":"gpt-image-2")"));
}

TEST_F(WallpaperManagerGenerateTest, nsfwPromptsGoToGrokUnlessAnotherProviderIsChosen)
{
    start().setNsfwEnabled(true);
    generate();
    manager->setProviderOverride(QStringLiteral("openai"));
    generate();
    ASSERT_EQ(service.requests().size(), 2);
    EXPECT_TRUE(service.requests().at(0).body.contains("grok-imagine-image"));
    EXPECT_TRUE(service.requests().at(1).body.contains("gpt-image-2"));
}

TEST_F(WallpaperManagerGenerateTest, twoRunsAtOnceAreBothCarriedOut)
{
    start();
    manager->setPrompt(QStringLiteral("first"));
    manager->generateAndSet();
    manager->setPrompt(QStringLiteral("second"));
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
                      std::function<void(UpscaleProgress)>) -> QCoro::Task<UpscaledImage> {
        auto work = [stop] {
            std::mutex mutex;
            std::condition_variable_any stopped;
            std::unique_lock lock(mutex);
            stopped.wait(lock, stop, [] { return false; });
            throw ProviderError::invalidResponse(QStringLiteral("stopped"));
        };
        co_await onWorker(std::move(work));
        co_return UpscaledImage();
    };
    start().setFourKEnabled(true);
    manager->setProviderOverride(QStringLiteral("grok"));
    defaults->set(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
    manager->setPrompt(QStringLiteral("a lake"));
    manager->generateAndSet();
    ASSERT_TRUE(waitFor([this] { return manager->status().startsWith(QStringLiteral("Upscaling")); }));
    manager.reset();
    EXPECT_EQ(files(),
              (QStringList{QStringLiteral("prompts.json"), QStringLiteral("wallpaper_2026-01-31_23-59-01.jpg")}));
    EXPECT_TRUE(desktop.shown().isEmpty());
}

TEST_F(WallpaperManagerGenerateTest, theKeyStandsInItsHeaderAndNowhereElse)
{
    start();
    generate();
    manager->setProviderOverride(QStringLiteral("grok"));
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
    Keychain::save(QStringLiteral("K\r\nX-Evil: 1"), QStringLiteral("gemini"));
    start();
    generate();
    EXPECT_EQ(
        manager->status(),
        QStringLiteral("Network error: The stored API key has a character that cannot be sent. Save the key again."));
    EXPECT_TRUE(service.requests().isEmpty());
}

} // namespace quorvane
