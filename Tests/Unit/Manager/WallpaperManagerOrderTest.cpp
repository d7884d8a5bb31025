// What comes before what in an operation: who looks in the middle of one sees a state that is so.

#include "Unit/Manager/ManagerFixture.h"

#include "Manager/SettingsKeys.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace quorvane {

class WallpaperManagerOrderTest : public ManagerTest
{
  protected:
    void start()
    {
        EXPECT_TRUE(Keychain::save(u"KEY"_s, u"gemini"_s));
        EXPECT_TRUE(Keychain::save(u"KEY"_s, u"grok"_s));
        ManagerTest::start();
    }

    /// Calls look at the moment when the wallpaper is there, once.
    template <typename Look> void whenTheWallpaperIsSet(Look look)
    {
        QObject::connect(manager.get(), &WallpaperManager::currentWallpaperURLChanged, manager.get(), std::move(look));
    }
};

TEST_F(WallpaperManagerOrderTest, aGenerationIsBusyUntilItsWallpaperIsSet)
{
    start();
    bool wasLoading = false;
    whenTheWallpaperIsSet([&] { wasLoading = manager->isLoading(); });
    generate();
    EXPECT_TRUE(wasLoading);
    EXPECT_FALSE(manager->isLoading());
}

TEST_F(WallpaperManagerOrderTest, anUpscaleIsBusyUntilItsCopyIsSet)
{
    const QString source = putImage(u"a.png"_s);
    store(SettingsKeys::kUpscaleMethod, u"local"_s);
    start();
    QStringList busyWith;
    bool wasLoading = false;
    whenTheWallpaperIsSet([&] {
        wasLoading = manager->isLoading();
        busyWith.append(manager->upscalingURL());
    });
    manager->upscaleExistingImage(source);
    EXPECT_TRUE(manager->isLoading()) << "at once";
    EXPECT_EQ(manager->upscalingURL(), source);
    manager->waitUntilIdle();
    EXPECT_TRUE(wasLoading);
    EXPECT_EQ(busyWith, QStringList{source});
    EXPECT_FALSE(manager->isLoading());
    EXPECT_EQ(manager->upscalingURL(), QString());
}

TEST_F(WallpaperManagerOrderTest, thePromptAndTheLinkAreKeptBeforeTheWallpaperIsSet)
{
    store(SettingsKeys::kProviderOverride, u"grok"_s);
    store(SettingsKeys::kFourKEnabled, true);
    store(SettingsKeys::kUpscaleMethod, u"local"_s);
    start();
    QByteArray prompts;
    QByteArray links;
    whenTheWallpaperIsSet([&] {
        prompts = sideFile("prompts.json");
        links = sideFile("variants.json");
    });
    generate(u"a lake"_s);
    ASSERT_EQ(manager->status(), u"Wallpaper set!"_s);
    EXPECT_EQ(prompts.count("a lake"), 2) << prompts.constData();
    EXPECT_TRUE(links.contains(imageName(manager->currentWallpaperURL()).toUtf8())) << links.constData();
}

TEST_F(WallpaperManagerOrderTest, aNewOperationBeginsWithoutTheErrorOfTheLast)
{
    start();
    service.setMisbehaviour(Misbehaviour::Kind::ErrorObject);
    generate();
    ASSERT_TRUE(manager->isError());
    service.setMisbehaviour({});
    manager->generateAndSet();
    EXPECT_FALSE(manager->isError());
    EXPECT_EQ(manager->status(), QString());
    manager->waitUntilIdle();
    service.setMisbehaviour(Misbehaviour::Kind::ErrorObject);
    generate();
    ASSERT_TRUE(manager->isError());
    manager->upscaleExistingImage(manager->history().first());
    EXPECT_FALSE(manager->isError());
    EXPECT_EQ(manager->status(), QString());
    manager->waitUntilIdle();
}

TEST_F(WallpaperManagerOrderTest, anEmptyKeyIsAKey)
{
    EXPECT_TRUE(Keychain::save(QString(), u"gemini"_s));
    ManagerTest::start();
    EXPECT_TRUE(manager->missingKeys().isEmpty());
    generate();
    // What becomes of it is the service's business.
    EXPECT_EQ(service.requests().size(), 1);
    EXPECT_TRUE(manager->status().startsWith("API error: "_L1)) << manager->status().toStdString();
}

TEST_F(WallpaperManagerOrderTest, theWallpaperIsRememberedInTheSettings)
{
    start();
    generate();
    ASSERT_FALSE(manager->currentWallpaperURL().isEmpty());
    EXPECT_TRUE(defaults->sync());
    EXPECT_EQ(UserDefaults().text(SettingsKeys::kCurrentWallpaperPath), manager->currentWallpaperURL());
}

TEST_F(WallpaperManagerOrderTest, everyAssignmentIsAnnounced)
{
    start();
    QSignalSpy nsfw(manager.get(), &WallpaperManager::nsfwEnabledChanged);
    QSignalSpy interval(manager.get(), &WallpaperManager::intervalMinutesChanged);
    QSignalSpy fourK(manager.get(), &WallpaperManager::fourKEnabledChanged);
    manager->setNsfwEnabled(true);
    manager->setIntervalMinutes(60);
    manager->setFourKEnabled(true);
    EXPECT_EQ(nsfw.count(), 1);
    EXPECT_EQ(interval.count(), 1);
    EXPECT_EQ(fourK.count(), 1);
}

TEST_F(WallpaperManagerOrderTest, aKeyIsStoredWhenItIsAnnounced)
{
    ManagerTest::start();
    QList<std::optional<QString>> seen;
    QObject::connect(manager.get(), &WallpaperManager::keysChanged, manager.get(),
                     [&seen] { seen.append(Keychain::load(u"openai"_s)); });
    EXPECT_TRUE(manager->saveKey(u"NEW"_s, u"openai"_s));
    EXPECT_TRUE(manager->removeKey(u"openai"_s));
    EXPECT_EQ(seen, (QList<std::optional<QString>>{u"NEW"_s, std::nullopt}));
}

TEST_F(WallpaperManagerOrderTest, changesOfTheLibraryHappenInTheOrderTheyWereAskedForIn)
{
    const QString path = putImage(u"a.png"_s);
    start();
    // An odd number of turns ends where one would, whatever the disk takes for each.
    for (int turn = 0; turn < 101; ++turn) {
        manager->toggleFavorite(path);
    }
    manager->waitUntilIdle();
    EXPECT_EQ(sideFile("favorites.json"), R"(["a.png"])");
    EXPECT_EQ(manager->favorites(), QSet<QString>{u"a.png"_s});
}

namespace {

/// A password storage of an older version, with one key in it.
class OlderStore final : public SecretStore
{
  public:
    [[nodiscard]] std::optional<QByteArray> read(const QString & /*service*/, const QString &account) override
    {
        return account == "grok-api-key"_L1 && !isRemoved ? std::optional(QByteArray("OLD KEY")) : std::nullopt;
    }
    void remove(const QString & /*service*/, const QString & /*account*/) override { isRemoved = true; }

    bool isRemoved = false;
};

} // namespace

TEST_F(WallpaperManagerOrderTest, keysOfAnOlderVersionAreThereOnceTheManagerIs)
{
    OlderStore older;
    UserDefaults settings;
    HttpClient client;
    ManagerServices services{.defaults = &settings,
                             .http = &client,
                             .desktop = &desktop,
                             .legacyKeys = &older,
                             .localUpscale = localUpscale,
                             .clock = &clock,
                             .powerEvents = &powerEvents,
                             .screens = &screens};
    const WallpaperManager launched(std::move(services));
    EXPECT_EQ(Keychain::load(u"grok"_s), u"OLD KEY"_s);
    EXPECT_TRUE(older.isRemoved);
}

} // namespace quorvane
