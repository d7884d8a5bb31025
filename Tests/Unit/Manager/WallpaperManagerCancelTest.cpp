// The user wants no more of a picture that is being made.

#include "Unit/Manager/ManagerFixture.h"

#include "Manager/SettingsKeys.h"
#include "Platform/Threads/Worker.h"
#include "Support/WaitFor.h"

using namespace Qt::StringLiterals;

namespace quorvane {

class WallpaperManagerCancelTest : public ManagerTest
{
  protected:
    void startWith(const QString &provider)
    {
        EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
        EXPECT_TRUE(Keychain::save(u"KEY"_s, u"grok"_s));
        store(SettingsKeys::kProviderOverride, provider);
        start();
    }

    /// An enlargement on this machine that goes on until it is asked to stop.
    void enlargeForEver()
    {
        store(SettingsKeys::kUpscaleMethod, u"local"_s);
        localUpscale = [this](QByteArray, std::stop_token stop,
                              std::function<void(UpscaleProgress)>) -> QCoro::Task<EncodedImage> {
            isEnlarging = true;
            auto wait = [stop] {
                while (!stop.stop_requested()) {
                    std::this_thread::yield();
                }
            };
            co_await onWorker(std::move(wait));
            throw ProviderError::networkError(u"stopped"_s);
        };
    }

    bool isEnlarging = false;
    const QString asked = u"Cancelled. The service may charge for what it was asked for."_s;
};

TEST_F(WallpaperManagerCancelTest, whereNothingIsMadeThereIsNothingToCancel)
{
    startWith(u"gemini"_s);
    EXPECT_FALSE(manager->cancel());
    generate();
    EXPECT_FALSE(manager->cancel());
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
}

TEST_F(WallpaperManagerCancelTest, aGenerationEndsAtOnceAndLeavesNothing)
{
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    startWith(u"gemini"_s);
    manager->generateAndSet();
    ASSERT_TRUE(waitFor([this] { return !service.requests().isEmpty(); }));
    EXPECT_TRUE(manager->cancel());
    EXPECT_FALSE(manager->cancel()) << "once is enough";
    manager->waitUntilIdle();
    EXPECT_EQ(manager->status(), asked);
    EXPECT_FALSE(manager->isError()) << "the user knows";
    EXPECT_FALSE(manager->isLoading());
    EXPECT_TRUE(result.isError) << "who waits for a picture gets none";
    EXPECT_EQ(result.status, asked);
    EXPECT_EQ(result.file, QString());
    EXPECT_TRUE(files().isEmpty());
    EXPECT_TRUE(desktop.shown().isEmpty());

    // The next one is another.
    service.setMisbehaviour({});
    generate();
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
}

TEST_F(WallpaperManagerCancelTest, whatWasPaidForStaysWhenItsEnlargementIsCancelled)
{
    enlargeForEver();
    store(SettingsKeys::kFourKEnabled, true);
    startWith(u"grok"_s);
    manager->setPrompt(u"a lake"_s);
    manager->generateAndSet();
    ASSERT_TRUE(waitFor([this] { return isEnlarging; }));
    EXPECT_TRUE(manager->cancel());
    manager->waitUntilIdle();
    EXPECT_EQ(manager->status(), u"Cancelled."_s);
    ASSERT_EQ(manager->history().size(), 1);
    EXPECT_EQ(result.original, manager->history().first());
    EXPECT_EQ(result.file, QString());
    EXPECT_TRUE(sideFile("prompts.json").contains("a lake"));
    EXPECT_FALSE(QFile::exists(home.library() + u"/variants.json"_s));
    EXPECT_TRUE(desktop.shown().isEmpty());
}

TEST_F(WallpaperManagerCancelTest, anUpscaleHereEndsAndItsSourceStays)
{
    const QString source = putImage(u"a.png"_s);
    enlargeForEver();
    startWith(u"gemini"_s);
    manager->upscaleExistingImage(source);
    ASSERT_TRUE(waitFor([this] { return isEnlarging; }));
    EXPECT_TRUE(manager->cancel());
    manager->waitUntilIdle();
    EXPECT_EQ(manager->status(), u"Cancelled."_s);
    EXPECT_EQ(manager->upscalingURL(), QString());
    EXPECT_EQ(files(), QStringList{u"a.png"_s});
}

TEST_F(WallpaperManagerCancelTest, anUpscaleByTheServiceEndsOnTheWire)
{
    const QString source = putImage(u"a.png"_s);
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    startWith(u"gemini"_s);
    manager->upscaleExistingImage(source);
    ASSERT_TRUE(waitFor([this] { return !service.requests().isEmpty(); }));
    EXPECT_TRUE(manager->cancel());
    manager->waitUntilIdle();
    EXPECT_EQ(manager->status(), asked);
    EXPECT_EQ(files(), QStringList{u"a.png"_s});
}

TEST_F(WallpaperManagerCancelTest, whatIsMadeAlreadyIsNotToldToBeCancelled)
{
    startWith(u"gemini"_s);
    QList<bool> cancelled;
    QObject::connect(manager.get(), &WallpaperManager::currentWallpaperURLChanged, manager.get(),
                     [&] { cancelled.append(manager->cancel()); });
    generate();
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    manager->setUpscaleMethod(UpscaleMethod::Local);
    manager->upscaleExistingImage(manager->history().first());
    manager->waitUntilIdle();
    EXPECT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_EQ(cancelled, (QList<bool>{false, false}));
}

TEST_F(WallpaperManagerCancelTest, everythingThatMakesAPictureEnds)
{
    const QString source = putImage(u"a.png"_s);
    enlargeForEver();
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    startWith(u"gemini"_s);
    manager->upscaleExistingImage(source);
    manager->generateAndSet();
    ASSERT_TRUE(waitFor([this] { return isEnlarging && !service.requests().isEmpty(); }));
    EXPECT_TRUE(manager->cancel());
    manager->waitUntilIdle();
    EXPECT_EQ(results.size(), 2);
    EXPECT_FALSE(manager->isLoading());
}

} // namespace quorvane
