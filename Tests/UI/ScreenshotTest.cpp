// Every view in both themes, beside pictures of how they looked before. With QUORVANE_SCREENSHOTS=FOLDER the pictures
// are kept there to be looked at, in the language that QUORVANE_SCREENSHOTS_LANGUAGE names; with
// QUORVANE_UPDATE_PICTURES=1 the small ones in Tests/Data/windows are made anew.

#include "Manager/SettingsKeys.h"
#include "Platform/Threads/Worker.h"
#include "Support/SpokenLanguage.h"
#include "UI/ViewFixture.h"

#include <QFontInfo>
#include <QPromise>

namespace quorvane {

namespace {

constexpr QSize kSmall(240, 160);

/// How far two small pictures are apart. Fonts and versions of Qt draw text a little differently, and the tiles show
/// dates, so single pixels prove nothing: what counts is how many differ clearly, and the whole on average.
struct Difference
{
    double clearShare = 1; ///< Of the pixels.
    double average = 255;  ///< Of the channels.

    [[nodiscard]] bool isSmall() const { return clearShare < 0.02 && average < 3; }
};

Difference differenceOf(const QImage &one, const QImage &other)
{
    if (one.size() != other.size() || one.isNull()) {
        return {};
    }
    constexpr int kClear = 48;
    qint64 clear = 0;
    qint64 sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb left = one.pixel(x, y);
            const QRgb right = other.pixel(x, y);
            const int red = std::abs(qRed(left) - qRed(right));
            const int green = std::abs(qGreen(left) - qGreen(right));
            const int blue = std::abs(qBlue(left) - qBlue(right));
            sum += red + green + blue;
            clear += std::max({red, green, blue}) > kClear ? 1 : 0;
        }
    }
    const double pixels = double(one.width()) * one.height();
    return {double(clear) / pixels, double(sum) / pixels / 3};
}

} // namespace

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

    /// Lets motion end before a picture is taken for people.
    void settle()
    {
        if (!qEnvironmentVariableIsSet("QUORVANE_SCREENSHOTS") &&
            !qEnvironmentVariableIsSet("QUORVANE_UPDATE_PICTURES")) {
            return;
        }
        (void)waitFor([] { return false; }, qEnvironmentVariableIsSet("QUORVANE_UPDATE_PICTURES")
                                                ? std::chrono::seconds(4)
                                                : std::chrono::milliseconds(600));
    }

    /// Waits until the window looks as it did.
    void looksLike(const QString &name)
    {
        const QString path = QStringLiteral("%1/windows/%2.png").arg(QLatin1String(QUORVANE_TEST_DATA), name);
        const auto small = [this] {
            return window->grabWindow()
                .scaled(kSmall, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                .convertToFormat(QImage::Format_RGB32);
        };
        if (qEnvironmentVariableIsSet("QUORVANE_UPDATE_PICTURES")) {
            settle();
            EXPECT_TRUE(small().save(path));
        }
        const QImage before = QImage(path).convertToFormat(QImage::Format_RGB32);
        Difference difference;
        EXPECT_TRUE(waitFor([&] {
            difference = differenceOf(small(), before);
            return difference.isSmall();
        })) << name.toStdString()
            << ": " << 100 * difference.clearShare << " % differ clearly, " << difference.average << " on average";
        take(name);
    }

    /// A small library, and everything on.
    void prepare()
    {
        const std::array prompts{"northern lights over a frozen lake", "desert dunes under stars",
                                 "misty mountains at dawn"};
        for (int number = 0; number < 5; ++number) {
            (void)putPainting(QStringLiteral("picture-%1.png").arg(number),
                              QLatin1String(prompts[std::size_t(std::min(number, 2))]), {480, 270});
        }
        Keychain::save(QStringLiteral("KEY-KEY-KEY"), QStringLiteral("gemini"));
        ImageStore::saveFavorite(QStringLiteral("picture-1.png"));
        store(SettingsKeys::kLastPrompt, QStringLiteral("misty mountains at dawn"));
        start();
    }

    void compareAll(const QString &theme)
    {
        if (QFontInfo(QGuiApplication::font()).family() != QLatin1String("DejaVu Sans") ||
            qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) {
            GTEST_SKIP() << "the pictures show DejaVu Sans at scale 1";
        }
        prepare();
        open();
        looksLike(theme + QStringLiteral("-small-albums"));
        click(QStringLiteral("album misty mountains at dawn"));
        looksLike(theme + QStringLiteral("-small-album"));
        click(QStringLiteral("tile ") + manager->history().first());
        looksLike(theme + QStringLiteral("-small-preview"));
        open(QStringLiteral("SettingsWindow"));
        looksLike(theme + QStringLiteral("-small-keys"));
        click(QStringLiteral("advancedTab"));
        looksLike(theme + QStringLiteral("-small-advanced"));
    }

    void takeAll(const QString &theme)
    {
        QPromise<void> ends;
        ends.start();
        localUpscale = [&ends](QByteArray image, std::stop_token,
                               std::function<void(UpscaleProgress)> progress) -> QCoro::Task<UpscaledImage> {
            progress({3, 12, std::chrono::seconds(90)});
            QFuture<void> end = ends.future();
            co_await EndOf(std::move(end));
            co_return UpscaledImage{image, QStringLiteral("png")};
        };
        store(SettingsKeys::kUpscaleMethod, QStringLiteral("local"));
        start();
        manager->toggleFavorite(manager->history().value(1));
        manager->toggleFavorite(manager->history().value(4));
        manager->waitUntilIdle();
        open();
        settle();
        take(theme + QStringLiteral("-albums"));
        window->setProperty("trayShown", false);
        click(QStringLiteral("menuButton"));
        settle();
        take(theme + QStringLiteral("-menu"));
        QTest::keyClick(window, Qt::Key_Escape);
        window->setProperty("trayShown", true);
        click(QStringLiteral("album misty mountains at dawn"));
        settle();
        hover(middleOf(find(QStringLiteral("imageGrid"))) - QPoint(150, 150));
        settle();
        take(theme + QStringLiteral("-album"));
        // One that is not enlarged yet, although this may be the second round.
        const QString path = manager->history().at(2);
        ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("tile ") + path); }));
        QTest::mouseClick(window, Qt::RightButton, {}, middleOf(find(QStringLiteral("tile ") + path)));
        settle();
        take(theme + QStringLiteral("-context"));
        QTest::keyClick(window, Qt::Key_Escape);
        click(QStringLiteral("tile ") + path);
        settle();
        take(theme + QStringLiteral("-preview"));
        click(QStringLiteral("upscaleButton"));
        settle();
        take(theme + QStringLiteral("-preview-upscaling"));
        QTest::keyClick(window, Qt::Key_Escape);
        settle();
        take(theme + QStringLiteral("-album-upscaling"));
        click(QStringLiteral("tile ") + path);
        ends.finish();
        manager->waitUntilIdle();
        settle();
        take(theme + QStringLiteral("-preview-upscaled"));
        QTest::keyClick(window, Qt::Key_Escape);
        open(QStringLiteral("SettingsWindow"));
        settle();
        take(theme + QStringLiteral("-keys"));
        click(QStringLiteral("advancedTab"));
        settle();
        take(theme + QStringLiteral("-advanced"));
    }
};

TEST_F(Screenshot, theViewsLookAsTheyDidInTheLight)
{
    compareAll(QStringLiteral("light"));
}

TEST_F(Screenshot, theViewsLookAsTheyDidInTheDark)
{
    QGuiApplication::setPalette(palette(QColor(30, 30, 30), Qt::white));
    compareAll(QStringLiteral("dark"));
}

TEST_F(Screenshot, fromRightToLeftTheSidebarIsOnTheRight)
{
    prepare();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    open();
    settle();
    take(QStringLiteral("right-to-left-albums"));
    EXPECT_GT(middleOf(find(QStringLiteral("generateButton"))).x(), 680);
    EXPECT_LT(middleOf(find(QStringLiteral("albumGrid"))).x(), 680);
    click(QStringLiteral("album misty mountains at dawn"));
    ASSERT_TRUE(waitFor([&] { return isReachable(QStringLiteral("tile ") + manager->history().first()); }));
    // What leads on and back changes sides, too.
    EXPECT_GT(middleOf(find(QStringLiteral("albumsButton"))).x(),
              middleOf(find(QStringLiteral("usePromptButton"))).x());
    settle();
    take(QStringLiteral("right-to-left-album"));
    open(QStringLiteral("SettingsWindow"));
    settle();
    take(QStringLiteral("right-to-left-keys"));
    EXPECT_GT(middleOf(find(QStringLiteral("geminiField"))).x(), middleOf(find(QStringLiteral("geminiSave"))).x());
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

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
