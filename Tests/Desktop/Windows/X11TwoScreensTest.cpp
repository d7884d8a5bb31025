#include "X11ViewerFixture.h"

#include "Support/Desktop/PrivateXorg.h"

using namespace Qt::StringLiterals;

namespace quorvane {

/// With two screens, and a panel at the top of the right one.
class X11TwoScreensTest : public X11ViewerTest
{
  protected:
    void SetUp() override
    {
        const QString program = PrivateXorg::missingProgram();
        if (!program.isEmpty()) {
            GTEST_SKIP() << program.toStdString() << " is not installed";
        }
        X11ViewerTest::SetUp();
    }
    void startServer() override
    {
        auto screens = std::make_unique<PrivateXorg>();
        ASSERT_TRUE(screens->isReady());
        ASSERT_EQ(screens->areas(), (QList<QRect>{{0, 0, 1280, 720}, {1280, 0, 800, 600}}));
        server = std::move(screens);
    }
    void prepareDisplay() override
    {
        ASSERT_NO_FATAL_FAILURE(X11ViewerTest::prepareDisplay());
        panel.emplace(QStringLiteral(DROP_RECEIVER), QStringList{u"panel"_s}, session.environment(),
                      session.home().path());
        ASSERT_TRUE(waitFor([&] { return isPanelSeen(); })) << panel->errors().constData();
    }
    [[nodiscard]] bool isPanelSeen() const { return server->rootWindow().pixelColor(kInPanel) == QColor(Qt::blue); }

    static constexpr QPoint kInPanel{2070, 12};
    std::optional<OwnedProgram> panel;
};

TEST_F(X11TwoScreensTest, theViewerComesOnTheWindowsScreenAboveItsPanel)
{
    ASSERT_NO_FATAL_FAILURE(start(server->clientEnvironment(), "xcb"));
    openPreview();
    act({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Quorvane$"_s, u"windowmove"_s, u"--sync"_s, u"1290"_s,
         u"40"_s});
    press("push button", "Full Screen");
    // The picture is square, so it leaves the sides of its screen black.
    EXPECT_TRUE(waitFor([&] {
        const QImage screens = server->rootWindow();
        return screens.pixelColor(1680, 5) == QColor(Qt::red) && screens.pixelColor(1680, 595) == QColor(Qt::red) &&
               screens.pixelColor(1282, 598) == QColor(Qt::black) && screens.pixelColor(kInPanel) == QColor(Qt::black);
    }));
    EXPECT_TRUE(isStrangerSeen());
    EXPECT_TRUE(waitFor([&] { return activeTitle() == "Quorvane"; }));
    act({u"key"_s, u"Escape"_s});
    EXPECT_TRUE(waitFor([&] { return isPanelSeen(); }));
    EXPECT_TRUE(comes(kButton, u"Full Screen"_s));
}

} // namespace quorvane
