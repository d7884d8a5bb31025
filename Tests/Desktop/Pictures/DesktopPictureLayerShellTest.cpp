// The backgrounds of our own surfaces on a real sway, judged by the pixels of its outputs.

#include "Desktop/Pictures/DesktopPictureLayerShellFixture.h"

#include "Platform/Wayland/WaylandFacts.h"
#include "Support/Desktop/NestedSway.h"

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(DesktopPictureLayerShellTest, fillsEachOutputAroundTheCentreAndRefreshesTheSamePath)
{
    start();
    // Each version of sway tells them in another order.
    const QList<Screen> screens = m_desktop->screens();
    ASSERT_EQ(screens.size(), 2);
    EXPECT_TRUE(screens.contains({kFirst, QSize(800, 450)}));
    EXPECT_TRUE(screens.contains({kSecond, QSize(400, 600)}));
    const QString path = save(QString::fromUtf8("o'brien $(x) #1 100% \"q\" \n Ünïcødé 日本/one.png"), 40);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForBoth(40), QString());
    const QByteArray screenshots = qgetenv("QUORVANE_TEST_SCREENSHOTS");
    if (!screenshots.isEmpty()) {
        m_sway->screenshot(kFirst).save(QFile::decodeName(screenshots) + u"/layer-shell-1.png"_s);
        m_sway->screenshot(kSecond).save(QFile::decodeName(screenshots) + u"/layer-shell-2.png"_s);
    }
    ASSERT_TRUE(positionPicture(kSource, 200).save(path));
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForBoth(200), QString());
}

TEST_F(DesktopPictureLayerShellTest, thePictureGoesWithTheObject)
{
    start();
    const QImage before = m_sway->screenshot(kFirst);
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 40), m_desktop->screens()), kDone);
    ASSERT_EQ(waitForBoth(40), QString());
    EXPECT_TRUE(m_desktop->endsWithTheProgram());
    m_desktop.reset();
    EXPECT_TRUE(waitFor([&] { return m_sway->screenshot(kFirst) == before; }));
}

TEST_F(DesktopPictureLayerShellTest, anOutputThatIsUnpluggedAndComesBackShowsThePicture)
{
    const PrivateSway outer({QSize(1000, 600)});
    ASSERT_TRUE(outer.isReady());
    const NestedSway inner(outer, 2);
    ASSERT_TRUE(inner.isReady());
    DesktopPictureLayerShell desktop(outer.runtimeFolder() + u"/wayland-2"_s, QString(), ProgramLife::Application);
    ASSERT_EQ(desktop.screens().size(), 2);
    ASSERT_EQ(desktop.setPicture(save(u"one.png"_s, 120), desktop.screens()), kDone);
    EXPECT_EQ(waitForPicture(inner, u"WL-2"_s, 120), QString());
    ASSERT_TRUE(inner.unplug(u"WL-2"_s));
    ASSERT_TRUE(waitFor([&] { return desktop.screens().size() == 1; }));
    ASSERT_TRUE(inner.plugIn());
    EXPECT_EQ(waitForPicture(inner, u"WL-3"_s, 120), QString());
    EXPECT_EQ(waitForPicture(inner, u"WL-1"_s, 120), QString());
}

TEST_F(DesktopPictureLayerShellTest, onePictureFollowsTheOtherWithoutAFrameInBetween)
{
    start({QSize(800, 450)});
    const QString even = save(u"even.png"_s, 40);
    const QString odd = save(u"odd.png"_s, 200);
    ASSERT_EQ(m_desktop->setPicture(even, m_desktop->screens()), kDone);
    ASSERT_EQ(waitForPicture(*m_sway, kFirst, 40), QString());
    std::atomic<int> shots = 0;
    std::atomic<int> neither = 0;
    std::jthread watching([&](const std::stop_token &stop) {
        while (!stop.stop_requested()) {
            const QImage shot = m_sway->screenshot(kFirst);
            const bool isOne =
                differenceFromFill(shot, kSource, 40).isEmpty() || differenceFromFill(shot, kSource, 200).isEmpty();
            neither += isOne ? 0 : 1;
            ++shots;
        }
    });
    for (int turn = 0; shots < 20; ++turn) {
        ASSERT_EQ(m_desktop->setPicture(turn % 2 == 0 ? odd : even, m_desktop->screens()), kDone);
    }
    watching.request_stop();
    watching.join();
    EXPECT_EQ(neither, 0) << "of " << shots;
}

TEST_F(DesktopPictureLayerShellTest, whatACompositorOffersIsToldWithoutStaying)
{
    start();
    const WaylandFacts facts = waylandFacts(display(), QDeadlineTimer(kDesktopLimit));
    EXPECT_TRUE(facts.isConnected);
    EXPECT_TRUE(facts.hasLayerShell);
    EXPECT_EQ(facts.screens.size(), 2);
    EXPECT_FALSE(waylandFacts(u"nobody-listens"_s, QDeadlineTimer(kDesktopLimit)).isConnected);
    EXPECT_FALSE(waylandFacts(QString(), QDeadlineTimer(kDesktopLimit)).isConnected);
}

} // namespace quorvane
