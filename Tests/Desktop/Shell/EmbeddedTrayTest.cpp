#include "ShellPanelFixture.h"

#include "Support/Desktop/PrivateXServer.h"

using namespace Qt::StringLiterals;

namespace quorvane {

/// An X server with a tray of the old kind, and no panel on the bus.
class EmbeddedTrayTest : public ShellTest
{
  protected:
    void SetUp() override
    {
        const QString missing = firstMissing({u"Xvfb"_s, u"xrandr"_s, u"trayer"_s, u"xdotool"_s});
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        ShellTest::SetUp();
        if (IsSkipped() || HasFatalFailure()) {
            return;
        }
        x = std::make_unique<PrivateXServer>(kScreen);
        ASSERT_TRUE(x->isReady());
        session.environment().insert(u"DISPLAY"_s, QString::fromLatin1(x->display()));
        session.environment().insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    }

    [[nodiscard]] std::unique_ptr<OwnedProgram> startTray() const
    {
        return std::make_unique<OwnedProgram>(
            u"trayer"_s,
            QStringList{u"--edge"_s, u"bottom"_s, u"--align"_s, u"right"_s, u"--widthtype"_s, u"pixel"_s, u"--width"_s,
                        QString::number(kTray.width()), u"--height"_s, QString::number(kTray.height()), u"--tint"_s,
                        u"0x202020"_s, u"--transparent"_s, u"true"_s, u"--alpha"_s, u"0"_s},
            session.environment(), session.home().path());
    }
    /// Whether the tray holds a light glyph.
    [[nodiscard]] bool showsIcon() const { return isGlyph(contrasting(x->rootWindow(), kTray, Qt::black)); }

    void press(const QStringList &what) const { (void)outputOf(u"xdotool"_s, what, session.environment()); }

    static constexpr QSize kScreen{640, 480};
    static constexpr QRect kTray{640 - 48, 480 - 48, 48, 48};
    std::unique_ptr<PrivateXServer> x;
};

TEST_F(EmbeddedTrayTest, theIconAndItsMenuAreInATrayOfTheOldKindUntilAPanelComes)
{
    const auto application = startAndWait();
    auto tray = startTray();
    ASSERT_TRUE(waitFor([this] { return showsIcon(); }))
        << tray->errors().constData() << application->errors().constData();
    keep(x->rootWindow(), u"trayer"_s);
    {
        const Panel panel(session.connection());
        EXPECT_TRUE(waitFor([this] { return !showsIcon(); }));
    }
    ASSERT_TRUE(waitFor([this] { return showsIcon(); }));
    tray->signal(SIGKILL);
    ASSERT_TRUE(waitFor([this] { return !showsIcon(); }));
    tray = startTray();
    ASSERT_TRUE(waitFor([this] { return showsIcon(); })) << tray->errors().constData();
    const QString middleX = QString::number(kTray.right() - 16);
    const QString middleY = QString::number(kTray.bottom() - 24);
    press({u"mousemove"_s, middleX, middleY, u"click"_s, u"1"_s});
    EXPECT_TRUE(application->says("main opened"));
    // The icon's own window keeps nothing from quitting the way a window does.
    application->tell("Ctrl+Q");
    EXPECT_TRUE(application->says("main closed"));

    const QImage before = x->rootWindow();
    press({u"mousemove"_s, middleX, middleY, u"click"_s, u"3"_s});
    ASSERT_TRUE(waitFor([&] { return x->rootWindow() != before; }));
    keep(x->rootWindow(), u"trayer-menu"_s);
    press({u"key"_s, u"Up"_s, u"Return"_s}); // The last item, "Quit".
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

} // namespace quorvane
