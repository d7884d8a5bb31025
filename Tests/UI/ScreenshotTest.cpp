// Every view in both themes, beside pictures of how they looked before. With QUORVANE_SCREENSHOTS=FOLDER the pictures
// are kept there to be looked at, in the language that QUORVANE_SCREENSHOTS_LANGUAGE names and as large as
// QUORVANE_SCREENSHOTS_SIZE (760x480) says; with QUORVANE_UPDATE_PICTURES=1 the small ones in Tests/Data/windows are
// made anew.

#include "Manager/SettingsKeys.h"
#include "Manager/Undo/Deletions.h"
#include "Platform/Threads/Worker.h"
#include "Support/SpokenLanguage.h"
#include "UI/ViewFixture.h"

#include <QFontInfo>
#include <QPromise>

#include <algorithm>

using namespace Qt::StringLiterals;

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
            EXPECT_TRUE(image.save(folder + '/'_L1 + name + u".png"_s));
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
        const QString path = u"%1/windows/%2.png"_s.arg(QLatin1String(QUORVANE_TEST_DATA), name);
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
            (void)putPainting(u"picture-%1.png"_s.arg(number), QLatin1String(prompts[std::size_t(std::min(number, 2))]),
                              {480, 270});
        }
        EXPECT_TRUE(Keychain::save(u"KEY-KEY-KEY"_s, u"gemini"_s));
        EXPECT_TRUE(ImageStore::saveFavorite(u"picture-1.png"_s));
        store(SettingsKeys::kLastPrompt, u"misty mountains at dawn"_s);
        start();
    }

    /// The main window, as large as the caller asked for.
    void openMain()
    {
        open();
        const QStringList size = qEnvironmentVariable("QUORVANE_SCREENSHOTS_SIZE").split('x'_L1);
        if (size.size() == 2) {
            window->resize(size[0].toInt(), size[1].toInt());
        }
    }

    /// A prompt that is too long for its line: the tip at the tile, the preview and the whole of it.
    void takeLongPrompt(const QString &theme, const QString &prompt)
    {
        hover(QPoint(2, 2));
        click(u"albumsButton"_s);
        const QString album = u"album "_s + prompt;
        // The oldest is the last, and a tile is made when it comes near.
        ASSERT_TRUE(waitFor([&] {
            QMetaObject::invokeMethod(find(u"albumGrid"_s), "positionViewAtEnd");
            return find(album) != nullptr;
        }));
        find(u"albumGrid"_s)->setProperty("contentY", std::max(0.0, find(album)->y() - 20));
        settle();
        click(album);
        ASSERT_TRUE(waitFor([&] { return isReachable(u"albumsButton"_s); }));
        settle();
        const auto *tile = find(u"imageGrid"_s)->property("currentItem").value<QQuickItem *>();
        ASSERT_NE(tile, nullptr);
        const QPointF captionOfTile(tile->width() / 2, 145);
        hover(tile->mapToScene(captionOfTile).toPoint());
        EXPECT_TRUE(waitFor([&] { return isSeen(u"toolTip"_s); }));
        settle();
        take(theme + u"-tip"_s);
        QTest::mouseClick(window, Qt::LeftButton, {}, tile->mapToScene(captionOfTile / 2).toPoint());
        settle();
        take(theme + u"-preview-long"_s);
        click(u"previewPrompt"_s);
        settle();
        take(theme + u"-preview-prompt"_s);
        QTest::keyClick(window, Qt::Key_Escape);
        QTest::keyClick(window, Qt::Key_Escape);
        settle();
    }

    /// What was not kept, below the status with the keyboard's frame.
    void takeProblem(const QString &theme)
    {
        const QByteArray before = sideFile("prompts.json");
        EXPECT_TRUE(putFile(ImageStore::promptsPath(), "{"));
        (void)manager->saveKey(u"KEY-KEY-KEY"_s, manager->resolvedProvider().id());
        manager->generateAndSet();
        manager->waitUntilIdle();
        EXPECT_TRUE(waitFor([&] { return isSeen(u"problems"_s); }));
        find(u"status"_s)->forceActiveFocus(Qt::TabFocusReason);
        settle();
        take(theme + u"-problems"_s);
        EXPECT_TRUE(putFile(ImageStore::promptsPath(), before));
    }

    void compareAll(const QString &theme)
    {
        if (QFontInfo(QGuiApplication::font()).family() != "DejaVu Sans"_L1 ||
            qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) {
            GTEST_SKIP() << "the pictures show DejaVu Sans at scale 1";
        }
        prepare();
        open();
        looksLike(theme + u"-small-albums"_s);
        click(u"album misty mountains at dawn"_s);
        looksLike(theme + u"-small-album"_s);
        click(u"tile "_s + manager->history().first());
        looksLike(theme + u"-small-preview"_s);
        open(u"SettingsWindow"_s);
        looksLike(theme + u"-small-keys"_s);
        click(u"advancedTab"_s);
        looksLike(theme + u"-small-advanced"_s);
    }

    /// Longer than any line.
    [[nodiscard]] static QString longPrompt()
    {
        return u"the sea at sunset with far islands and a very long description "_s.repeated(12).trimmed();
    }

    void takeAll(const QString &theme)
    {
        QPromise<void> ends;
        ends.start();
        localUpscale = [&ends](QByteArray image, std::stop_token,
                               std::function<void(UpscaleProgress)> progress) -> QCoro::Task<EncodedImage> {
            progress({3, 12, std::chrono::seconds(90)});
            QFuture<void> end = ends.future();
            co_await EndOf(std::move(end));
            co_return EncodedImage{image, u"png"_s};
        };
        store(SettingsKeys::kUpscaleMethod, u"local"_s);
        start();
        manager->toggleFavorite(manager->history().value(1));
        manager->toggleFavorite(manager->history().value(4));
        manager->waitUntilIdle();
        openMain();
        settle();
        take(theme + u"-albums"_s);
        window->setProperty("trayShown", false);
        click(u"menuButton"_s);
        settle();
        take(theme + u"-menu"_s);
        QTest::keyClick(window, Qt::Key_Escape);
        window->setProperty("trayShown", true);
        click(u"album misty mountains at dawn"_s);
        settle();
        hover(middleOf(find(u"imageGrid"_s)) - QPoint(150, 150));
        settle();
        take(theme + u"-album"_s);
        // One that is not enlarged yet, although this may be the second round.
        const QStringList pictures = manager->history();
        const auto seen = std::find_if(pictures.begin(), pictures.end(), [this](const QString &each) {
            return isReachable(u"tile "_s + each) && !ImageStore::variant(each);
        });
        ASSERT_NE(seen, pictures.end());
        const QString &path = *seen;
        QTest::mouseClick(window, Qt::RightButton, {}, middleOf(find(u"tile "_s + path)));
        settle();
        take(theme + u"-context"_s);
        QTest::keyClick(window, Qt::Key_Escape);
        click(u"tile "_s + path);
        settle();
        take(theme + u"-preview"_s);
        click(u"upscaleButton"_s);
        settle();
        take(theme + u"-preview-upscaling"_s);
        QTest::keyClick(window, Qt::Key_Escape);
        settle();
        take(theme + u"-album-upscaling"_s);
        click(u"tile "_s + path);
        ends.finish();
        manager->waitUntilIdle();
        settle();
        take(theme + u"-preview-upscaled"_s);
        QTest::keyClick(window, Qt::Key_Escape);
        takeLongPrompt(theme, longPrompt());
        takeProblem(theme);
        manager->deletions().remove({manager->history().first()});
        manager->waitUntilIdle();
        settle();
        take(theme + u"-undo"_s);
        open(u"SettingsWindow"_s);
        settle();
        take(theme + u"-keys"_s);
        click(u"geminiTrash"_s);
        settle();
        take(theme + u"-keys-undo"_s);
        QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
        click(u"advancedTab"_s);
        settle();
        take(theme + u"-advanced"_s);
    }
};

TEST_F(Screenshot, theViewsLookAsTheyDidInTheLight)
{
    compareAll(u"light"_s);
}

TEST_F(Screenshot, theViewsLookAsTheyDidInTheDark)
{
    QGuiApplication::setPalette(palette(QColor(30, 30, 30), Qt::white));
    compareAll(u"dark"_s);
}

TEST_F(Screenshot, fromRightToLeftTheSidebarIsOnTheRight)
{
    prepare();
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    open();
    settle();
    take(u"right-to-left-albums"_s);
    EXPECT_GT(middleOf(find(u"generateButton"_s)).x(), 680);
    EXPECT_LT(middleOf(find(u"albumGrid"_s)).x(), 680);
    click(u"album misty mountains at dawn"_s);
    ASSERT_TRUE(waitFor([&] { return isReachable(u"tile "_s + manager->history().first()); }));
    // What leads on and back changes sides, too.
    EXPECT_GT(middleOf(find(u"albumsButton"_s)).x(), middleOf(find(u"usePromptButton"_s)).x());
    settle();
    take(u"right-to-left-album"_s);
    open(u"SettingsWindow"_s);
    settle();
    take(u"right-to-left-keys"_s);
    EXPECT_GT(middleOf(find(u"geminiField"_s)).x(), middleOf(find(u"geminiSave"_s)).x());
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(Screenshot, theWindowFollowsTheSystemsPaletteAtOnce)
{
    start();
    open();
    const QPoint page(700, 600);
    const QImage light = take(u"light-empty"_s);
    EXPECT_GT(light.pixelColor(page * light.devicePixelRatio()).lightness(), 200);
    QGuiApplication::setPalette(palette(QColor(30, 30, 30), Qt::white));
    EXPECT_TRUE(waitFor([&] {
        const QImage dark = window->grabWindow();
        return dark.pixelColor(page * dark.devicePixelRatio()).lightness() < 60;
    }));
    take(u"dark-empty"_s);
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
    (void)putPainting(u"long.png"_s, longPrompt(), {960, 540});
    for (const char *prompt : prompts) {
        for (int each = 0; each < (number > 10 ? 7 : 3); ++each) {
            (void)putPainting(u"picture-%1.png"_s.arg(number++), QLatin1String(prompt), {960, 540});
        }
    }
    EXPECT_TRUE(Keychain::save(u"KEY-KEY-KEY"_s, u"gemini"_s));
    store(SettingsKeys::kLastPrompt, u"misty mountains at dawn, soft light, wide valley"_s);
    store(SettingsKeys::kFourKEnabled, true);
    store(SettingsKeys::kAutoEnabled, true);
    takeAll(u"light"_s);
    QGuiApplication::setPalette(palette(QColor(30, 30, 30), Qt::white));
    store(SettingsKeys::kProviderOverride, u"grok"_s);
    takeAll(u"dark"_s);
}

} // namespace quorvane
