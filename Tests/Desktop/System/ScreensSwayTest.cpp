#include "Desktop/System/ScreensFixture.h"

#include "Platform/Desktops/Protocols/SwaySocket.h"

#include "Support/Desktop/NestedSway.h"
#include "Support/Desktop/PrivateSway.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

class ScreensSwayTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = NestedSway::whyNot();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString();
        }
    }

    void start(const QList<QSize> &outputs)
    {
        m_sway = std::make_unique<PrivateSway>(outputs);
        ASSERT_TRUE(m_sway->isReady());
    }

    void listen(const QProcessEnvironment &environment)
    {
        m_probe = probe(environment, u"wayland"_s, OwnedProgram::User::NotRoot);
    }

    [[nodiscard]] bool command(const QString &text) const
    {
        return !outputOf(u"swaymsg"_s, {text}, m_sway->clientEnvironment()).isNull();
    }

    std::unique_ptr<PrivateSway> m_sway;
    std::unique_ptr<NestedSway> m_inner;
    std::unique_ptr<OwnedProgram> m_probe;
};

} // namespace

TEST_F(ScreensSwayTest, newScreensModesAndScalesAreEachToldOnce)
{
    start({QSize(800, 600)});
    listen(m_sway->clientEnvironment());
    ASSERT_EQ(m_probe->readLine(), "0 HEADLESS-1=800x600+0+0") << m_probe->errors().constData();
    ASSERT_TRUE(command(u"output HEADLESS-1 mode 1000x500"_s));
    EXPECT_EQ(m_probe->readLine(), "1 HEADLESS-1=1000x500+0+0");
    ASSERT_TRUE(command(u"output HEADLESS-1 scale 2"_s));
    EXPECT_EQ(m_probe->readLine(), "2 HEADLESS-1=500x250+0+0");
    ASSERT_TRUE(command(u"output HEADLESS-2 mode 640x480 position 2000 0"_s));
    ASSERT_TRUE(command(u"create_output"_s));
    EXPECT_EQ(m_probe->readLine(), "3 HEADLESS-1=500x250+0+0 HEADLESS-2=640x480+2000+0");
}

TEST_F(ScreensSwayTest, aBurstOfChangesIsToldOnceAtItsEndAndABackgroundIsNone)
{
    start({QSize(800, 600), QSize(400, 300)});
    listen(m_sway->clientEnvironment());
    ASSERT_EQ(m_probe->readLine(), "0 HEADLESS-1=800x600+0+0 HEADLESS-2=400x300+800+0")
        << m_probe->errors().constData();
    SwaySocket socket(m_sway->socketPath(), QDeadlineTimer(std::chrono::seconds(20)));
    for (int width = 500; width < 900; width += 20) {
        const QString change = u"output HEADLESS-1 mode %1x600; output HEADLESS-2 position %1 0"_s.arg(width);
        const auto answer = socket.ask(SwaySocket::Message::RunCommand, change.toUtf8());
        ASSERT_TRUE(answer) << answer.failure().words.toStdString();
    }
    EXPECT_EQ(m_probe->readLine(), "1 HEADLESS-1=880x600+0+0 HEADLESS-2=400x300+880+0");
    // Whoever answers a change with a background must not be told of a change for it.
    ASSERT_TRUE(command(u"output * bg #204060 solid_color"_s));
    ASSERT_TRUE(command(u"output HEADLESS-1 scale 2"_s));
    EXPECT_EQ(m_probe->readLine(), "2 HEADLESS-1=440x300+0+0 HEADLESS-2=400x300+880+0");
}

TEST_F(ScreensSwayTest, unpluggedScreensThatComeBackAreTold)
{
    start({QSize(1000, 600)});
    m_inner = std::make_unique<NestedSway>(*m_sway, 2);
    ASSERT_TRUE(m_inner->isReady());
    listen(m_inner->clientEnvironment());
    const auto names = [this] {
        QByteArrayList words = m_probe->readLine().split(' ');
        for (QByteArray &word : words) {
            word.truncate(word.contains('=') ? word.indexOf('=') : word.size());
        }
        return words.join(' ');
    };
    ASSERT_EQ(names(), "0 WL-1 WL-2") << m_probe->errors().constData();
    ASSERT_TRUE(m_inner->unplug(u"WL-2"_s));
    EXPECT_EQ(names(), "1 WL-1");
    ASSERT_TRUE(m_inner->plugIn());
    EXPECT_EQ(names(), "2 WL-1 WL-3");
    ASSERT_TRUE(m_inner->unplug(u"WL-1"_s));
    EXPECT_EQ(names(), "3 WL-3");
    // The last one, which leaves a placeholder that must not be told as a screen.
    ASSERT_TRUE(m_inner->unplug(u"WL-3"_s));
    EXPECT_EQ(names(), "4");
    ASSERT_TRUE(m_inner->plugIn());
    EXPECT_EQ(names(), "5 WL-4");
}

} // namespace quorvane
