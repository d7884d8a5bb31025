// Every view in both themes. With QUORVANE_SCREENSHOTS=FOLDER the pictures are kept there to be looked at, in the
// language that QUORVANE_SCREENSHOTS_LANGUAGE names.

#include "Manager/SettingsKeys.h"
#include "Support/SpokenLanguage.h"
#include "UI/ViewFixture.h"

namespace quorvane {

class Screenshot : public ViewTest
{
  protected:
    /// What the window shows now, kept under name where the caller asked for it.
    QImage take(const QString &name)
    {
        const QImage image = window->grabWindow();
        const QString folder = qEnvironmentVariable("QUORVANE_SCREENSHOTS");
        if (!folder.isEmpty()) {
            EXPECT_TRUE(image.save(folder + QLatin1Char('/') + name + QStringLiteral(".png")));
        }
        return image;
    }

    void settle()
    {
        (void)waitFor([] { return false; }, std::chrono::milliseconds(600));
    }

    void takeAll(const QString &theme)
    {
        start();
        manager->toggleFavorite(manager->history().value(1));
        manager->toggleFavorite(manager->history().value(4));
        manager->waitUntilIdle();
        open();
        settle();
        take(theme + QStringLiteral("-albums"));
        click(QStringLiteral("album misty mountains at dawn"));
        settle();
        hover(middleOf(find(QStringLiteral("imageGrid"))) - QPoint(150, 150));
        settle();
        take(theme + QStringLiteral("-album"));
        const QString path = manager->history().first();
        click(QStringLiteral("tile ") + path);
        settle();
        take(theme + QStringLiteral("-preview"));
        QTest::keyClick(window, Qt::Key_Escape);
        open(QStringLiteral("SettingsWindow"));
        settle();
        take(theme + QStringLiteral("-keys"));
        click(QStringLiteral("advancedTab"));
        settle();
        take(theme + QStringLiteral("-advanced"));
    }
};

TEST_F(Screenshot, theWindowFollowsTheSystemsPaletteAtOnce)
{
    start();
    open();
    const QPoint page(700, 600);
    const QImage light = take(QStringLiteral("light-empty"));
    EXPECT_GT(light.pixelColor(page * light.devicePixelRatio()).lightness(), 200);
    QGuiApplication::setPalette(palette(QColor(30, 30, 30), Qt::white));
    EXPECT_TRUE(waitFor([&] {
        const QImage dark = window->grabWindow();
        return dark.pixelColor(page * dark.devicePixelRatio()).lightness() < 60;
    }));
    take(QStringLiteral("dark-empty"));
}

TEST_F(Screenshot, forTheEye)
{
    if (!qEnvironmentVariableIsSet("QUORVANE_SCREENSHOTS")) {
        GTEST_SKIP() << "QUORVANE_SCREENSHOTS names no folder";
    }
    const QString language = qEnvironmentVariable("QUORVANE_SCREENSHOTS_LANGUAGE");
    const SpokenLanguage spoken(language);
    QGuiApplication::setLayoutDirection(directionFor({language}));
    const std::array prompts{"northern lights over a frozen lake", "a lone tree on a hill in autumn",
                             "the sea at sunset with far islands and a very long description that has to be cut",
                             "desert dunes under stars", "misty mountains at dawn"};
    int number = 0;
    for (const char *prompt : prompts) {
        for (int each = 0; each < (number > 10 ? 7 : 3); ++each) {
            (void)putPainting(QStringLiteral("picture-%1.png").arg(number++),
                              QLatin1String(prompt) + QString(each, QLatin1Char(' ')).left(0), {960, 540});
        }
    }
    Keychain::save(QStringLiteral("KEY-KEY-KEY"), QStringLiteral("gemini"));
    store(SettingsKeys::kLastPrompt, QStringLiteral("misty mountains at dawn, soft light, wide valley"));
    store(SettingsKeys::kFourKEnabled, true);
    store(SettingsKeys::kAutoEnabled, true);
    takeAll(QStringLiteral("light"));
    QGuiApplication::setPalette(palette(QColor(30, 30, 30), Qt::white));
    store(SettingsKeys::kProviderOverride, QStringLiteral("grok"));
    takeAll(QStringLiteral("dark"));
}

} // namespace quorvane
