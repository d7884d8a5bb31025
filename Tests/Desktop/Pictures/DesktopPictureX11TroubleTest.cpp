#include "Desktop/Pictures/DesktopPictureX11Fixture.h"

#include <QElapsedTimer>

#include <csignal>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(DesktopPictureX11Test, aMonitorThatIsGoneIsAnErrorAndNothingChanges)
{
    startWithTwoMonitors();
    const QList<Screen> screens = m_desktop->screens();
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 40), screens), kDone);
    QList<Screen> more = screens;
    more.append({u"GONE"_s, QSize(10, 10)});
    EXPECT_EQ(m_desktop->setPicture(save(u"two.png"_s, 90), more), Failure{u"The X server has no screen \"GONE\""_s});
    EXPECT_NE(m_desktop->setPicture(m_home.path(), screens), kDone) << "a folder is no picture";
    EXPECT_EQ(differenceEverywhere(40), QString());
}

TEST_F(DesktopPictureX11Test, noServerMeansNoScreensAndAnError)
{
    DesktopPictureX11 nowhere(":7654", QString());
    EXPECT_EQ(nowhere.screens(), QList<Screen>());
    EXPECT_EQ(nowhere.setPicture(save(u"one.png"_s, 40), {{u"screen"_s, kRoot}}),
              Failure{u"The X server cannot be reached"_s});
}

TEST_F(DesktopPictureX11Test, aKilledServerIsAnErrorAtOnce)
{
    startWithTwoMonitors();
    const QList<Screen> screens = m_desktop->screens();
    const QString path = save(u"one.png"_s, 40);
    m_server->program().signal(SIGSTOP);
    Result<> shown;
    QElapsedTimer clock;
    clock.start();
    std::jthread setting([&] { shown = m_desktop->setPicture(path, screens); });
    m_server->program().signal(SIGKILL);
    setting.join();
    EXPECT_LT(clock.elapsed(), 5000);
    EXPECT_FALSE(shown);
    EXPECT_EQ(m_desktop->screens(), QList<Screen>());
}

TEST_F(DesktopPictureX11Test, aServerThatHangsIsGivenUpAndIsLeftAloneWhenItWakes)
{
    startWithTwoMonitors();
    const QList<Screen> screens = m_desktop->screens();
    ASSERT_EQ(m_desktop->setPicture(save(u"one.png"_s, 40), screens), kDone);
    DesktopPictureX11 impatient(m_server->display(), QString(), std::chrono::milliseconds(200));
    m_server->program().signal(SIGSTOP);
    EXPECT_EQ(impatient.setPicture(save(u"two.png"_s, 90), screens), Failure{u"The X server does not answer"_s});
    m_server->program().signal(SIGCONT);
    ASSERT_EQ(m_desktop->setPicture(save(u"three.png"_s, 140), screens), kDone);
    EXPECT_EQ(differenceEverywhere(140), QString());
}

} // namespace quorvane
