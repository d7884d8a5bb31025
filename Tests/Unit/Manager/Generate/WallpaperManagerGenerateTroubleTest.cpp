#include "Unit/Manager/Generate/WallpaperManagerGenerateFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
