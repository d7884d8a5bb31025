#include "Desktop/System/ScreensFixture.h"

#include "Support/Desktop/PrivateXServer.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QSize kRoot(1200, 700);
constexpr QRect kLeft(0, 0, 800, 450);
constexpr QRect kRight(800, 100, 400, 600);

class ScreensX11Test : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = PrivateXServer::missingProgram();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        m_server = std::make_unique<PrivateXServer>(kRoot);
        ASSERT_TRUE(m_server->isReady());
    }

    void listen() { m_probe = probe(m_server->clientEnvironment(), u"xcb"_s); }

    [[nodiscard]] bool xrandr(const QStringList &arguments) const
    {
        return !outputOf(u"xrandr"_s, arguments, m_server->clientEnvironment()).isNull();
    }

    std::unique_ptr<PrivateXServer> m_server;
    std::unique_ptr<OwnedProgram> m_probe;
};

} // namespace

TEST_F(ScreensX11Test, monitorsThatComeAndGoAreEachToldOnce)
{
    ASSERT_TRUE(m_server->addMonitor(u"LEFT"_s, kLeft));
    listen();
    ASSERT_EQ(m_probe->readLine(), "0 LEFT=800x450+0+0") << m_probe->errors().constData();
    ASSERT_TRUE(m_server->addMonitor(u"RIGHT"_s, kRight));
    EXPECT_EQ(m_probe->readLine(), "1 LEFT=800x450+0+0 RIGHT=400x600+800+100");
    ASSERT_TRUE(xrandr({u"--delmonitor"_s, u"RIGHT"_s}));
    EXPECT_EQ(m_probe->readLine(), "2 LEFT=800x450+0+0");
    ASSERT_TRUE(m_server->addMonitor(u"RIGHT"_s, kRight));
    EXPECT_EQ(m_probe->readLine(), "3 LEFT=800x450+0+0 RIGHT=400x600+800+100");
}

TEST_F(ScreensX11Test, aNewModeIsToldOnce)
{
    listen();
    ASSERT_EQ(m_probe->readLine(), "0 screen=1200x700+0+0") << m_probe->errors().constData();
    const QString timing = u"--newmode small 48 800 840 900 1000 600 620 640 800"_s;
    ASSERT_TRUE(xrandr(timing.split(' '_L1)));
    ASSERT_TRUE(xrandr({u"--addmode"_s, u"screen"_s, u"small"_s}));
    for (const auto &[mode, line] :
         {std::pair("small", "1 screen=800x600+0+0"), std::pair("1200x700", "2 screen=1200x700+0+0")}) {
        ASSERT_TRUE(xrandr({u"--output"_s, u"screen"_s, u"--mode"_s, QString::fromLatin1(mode)}));
        EXPECT_EQ(m_probe->readLine(), line);
    }
}

} // namespace quorvane
