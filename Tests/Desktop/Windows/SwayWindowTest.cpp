#include "WindowFixture.h"

#include "Support/Desktop/PrivateSway.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Whether a window of the program has the keyboard, as sway has it.
bool isFocused(const QJsonObject &node)
{
    if (node["focused"_L1].toBool() && node["app_id"_L1].toString() == "app.quorvane.Quorvane"_L1) {
        return true;
    }
    for (const char *kind : {"nodes", "floating_nodes"}) {
        for (const QJsonValue &child : node[QLatin1String(kind)].toArray()) {
            if (isFocused(child.toObject())) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

class SwayWindowTest : public WindowTest
{
  protected:
    void SetUp() override
    {
        const QString programMissing = PrivateSway::missingProgram();
        const QString reason = programMissing.isEmpty() ? missing({u"wtype"_s}) : programMissing;
        if (!reason.isEmpty()) {
            GTEST_SKIP() << reason.toStdString();
        }
        // With a panel on every screen.
        sway.emplace(QList<QSize>{QSize(1000, 700), QSize(600, 400)},
                     "bar {\n position top\n colors {\n background #00ff00\n }\n}\n");
        ASSERT_TRUE(sway->isReady());
        putPicture(u"a lake"_s);
    }
    /// Presses Escape until it has had its effect: the keyboard comes with each press, half a second before it, and
    /// goes after it; a busy program that has not taken notice of it by then loses the press.
    template <typename Condition> [[nodiscard]] bool escapeUntil(Condition condition) const
    {
        return waitFor([&] {
            (void)outputOf(u"wtype"_s, {u"-s"_s, u"500"_s, u"-k"_s, u"Escape"_s}, sway->clientEnvironment());
            return waitFor(condition, std::chrono::seconds(4));
        });
    }
    [[nodiscard]] bool hasKeyboard() const
    {
        const QByteArray answer = outputOf(u"swaymsg"_s, {u"-rt"_s, u"get_tree"_s}, sway->clientEnvironment());
        return isFocused(QJsonDocument::fromJson(answer).object());
    }
    [[nodiscard]] QColor colorAt(const char *output, QPoint place) const
    {
        return sway->screenshot(QLatin1String(output)).pixelColor(place);
    }

    std::optional<PrivateSway> sway;
};

TEST_F(SwayWindowTest, theWindowHasTheKeyboardAndThePreviewCanBeLeftByIt)
{
    start(sway->clientEnvironment(), "wayland");
    EXPECT_TRUE(waitFor([&] { return hasKeyboard(); }));
    const QColor other = colorAt("HEADLESS-2", {300, 200});
    openPreview();
    // In the middle of what the sidebar leaves.
    const QPoint middle(640, 340);
    EXPECT_TRUE(waitFor([&] { return colorAt("HEADLESS-1", middle) == QColor(Qt::red); }));
    EXPECT_EQ(colorAt("HEADLESS-2", {300, 200}), other);
    EXPECT_TRUE(escapeUntil([&] { return colorAt("HEADLESS-1", middle) != QColor(Qt::red); }));
    EXPECT_TRUE(hasKeyboard());
}

TEST_F(SwayWindowTest, theViewerCoversItsScreenAndEscapeGivesTheWindowBack)
{
    start(sway->clientEnvironment(), "wayland");
    openPreview();
    const QPoint inPanel(998, 2);
    EXPECT_TRUE(waitFor([&] { return colorAt("HEADLESS-1", inPanel) == QColor(Qt::green); }));
    const QPoint inPicture(500, 20);
    ASSERT_TRUE(waitFor([&] { return colorAt("HEADLESS-1", inPicture) != QColor(Qt::red); }));
    const QImage other = sway->screenshot(u"HEADLESS-2"_s);
    press([](const QString &name) { return name == "Full Screen"_L1; });
    // The picture is square, so it leaves the sides of the screen black.
    EXPECT_TRUE(waitFor([&] {
        const QImage screen = sway->screenshot(u"HEADLESS-1"_s);
        return screen.pixelColor(inPicture) == QColor(Qt::red) && screen.pixelColor(500, 680) == QColor(Qt::red) &&
               screen.pixelColor(1, 1) == QColor(Qt::black) && screen.pixelColor(998, 698) == QColor(Qt::black) &&
               screen.pixelColor(inPanel) == QColor(Qt::black);
    }));
    EXPECT_EQ(sway->screenshot(u"HEADLESS-2"_s), other);
    EXPECT_TRUE(escapeUntil([&] { return colorAt("HEADLESS-1", inPicture) != QColor(Qt::red); }));
    // The preview is still open, and the next Escape is for it.
    EXPECT_TRUE(comes(kButton, u"Full Screen"_s));
    EXPECT_TRUE(escapeUntil([&] { return !tree->find(kButton, u"Full Screen"_s); }));
}

TEST_F(SwayWindowTest, theViewerFollowsTheWindowToAnotherScreen)
{
    start(sway->clientEnvironment(), "wayland");
    openPreview();
    const QColor empty = colorAt("HEADLESS-2", QPoint(300, 200));
    (void)outputOf(u"swaymsg"_s, {u"[title=\".*\"] move container to output HEADLESS-2, focus"_s},
                   sway->clientEnvironment());
    ASSERT_TRUE(waitFor([&] { return colorAt("HEADLESS-2", QPoint(300, 200)) != empty; }));
    const QImage other = sway->screenshot(u"HEADLESS-1"_s);
    press([](const QString &name) { return name == "Full Screen"_L1; });
    EXPECT_TRUE(waitFor([&] {
        const QImage screen = sway->screenshot(u"HEADLESS-2"_s);
        return screen.pixelColor(300, 20) == QColor(Qt::red) && screen.pixelColor(300, 380) == QColor(Qt::red) &&
               screen.pixelColor(1, 1) == QColor(Qt::black) && screen.pixelColor(598, 398) == QColor(Qt::black);
    }));
    EXPECT_EQ(sway->screenshot(u"HEADLESS-1"_s), other);
}

} // namespace quorvane
