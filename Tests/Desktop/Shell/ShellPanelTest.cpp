// The icon in real panels: sway's bar, which reads the bus, and a tray of the old X11 kind, which embeds a window.
// Judged by the pixels of the screen.

#include "ShellPanelFixture.h"

using namespace Qt::StringLiterals;

namespace quorvane {

class SwayBarTest : public SwaySessionTest, public testing::WithParamInterface<const char *>
{
  protected:
    void SetUp() override
    {
        barColor = QColor(GetParam());
        SwaySessionTest::SetUp();
    }
};

TEST_P(SwayBarTest, theIconComesLateAndSurvivesThePanelsCrash)
{
    const auto application = startApplication();
    ASSERT_TRUE(waitFor([this] { return seenInTray() == 0; }));
    auto bar = startBar();
    ASSERT_TRUE(showsIcon()) << bar->errors().constData() << application->errors().constData();
    keep(sway->screenshot(kOutput), u"swaybar-%1"_s.arg(QLatin1String(GetParam() + 1)));
    bar->signal(SIGKILL);
    ASSERT_TRUE(waitFor([this] { return seenInTray() == 0; }));
    bar = startBar();
    EXPECT_TRUE(showsIcon()) << bar->errors().constData();
    application->signal(SIGTERM);
    EXPECT_EQ(application->waitForEnd(), 0);
    EXPECT_TRUE(waitFor([this] { return seenInTray() == 0; }));
}

INSTANTIATE_TEST_SUITE_P(DarkAndLight, SwayBarTest, testing::Values("#202020", "#f5f5f5"));

} // namespace quorvane
