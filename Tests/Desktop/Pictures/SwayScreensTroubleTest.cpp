#include "Desktop/Pictures/SwayScreensFixture.h"

#include "Support/Results.h"

#include <QElapsedTimer>

#include <csignal>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST_F(SwayScreensTest, refusesWhatSwayWouldCallASuccess)
{
    const QList<Screen> screens = m_desktop->screens();
    const QString path = save(library(u"one.png"_s), 40);
    ASSERT_EQ(m_desktop->setPicture(path, screens), kDone);
    ASSERT_EQ(waitForPicture(40), QString());

    const QString missing = wordsOf(m_desktop->setPicture(library(u"missing.png"_s), screens));
    EXPECT_TRUE(missing.contains(u"cannot be read"_s)) << missing.toStdString();

    QFile broken(library(u"broken.png"_s));
    QFile whole(path);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly) && broken.open(QIODevice::WriteOnly));
    broken.write(whole.read(whole.size() / 2));
    broken.close();
    EXPECT_NE(m_desktop->setPicture(broken.fileName(), screens), kDone);

    const QString other = save(library(u"it's/other.png"_s), 240);
    const QList<Screen> gone{{u"DP-9"_s, QSize(1, 1)}};
    EXPECT_EQ(m_desktop->setPicture(other, gone), Failure{u"sway has no screen \"DP-9\""_s});
    EXPECT_EQ(copies(), QStringList()) << "the copy that no screen shows is deleted";
    EXPECT_EQ(waitForPicture(40), QString());
}

TEST_F(SwayScreensTest, aKilledSwayIsAnErrorAtOnceAndHasNoScreens)
{
    const QList<Screen> screens = m_desktop->screens();
    const QString path = save(library(u"one.png"_s), 40);
    m_sway->program().signal(SIGSTOP);
    Result<> shown;
    QElapsedTimer clock;
    clock.start();
    std::jthread setting([&] { shown = m_desktop->setPicture(path, screens); });
    m_sway->program().signal(SIGKILL); // Wherever the other thread is by now, it was not answered.
    setting.join();
    EXPECT_LT(clock.elapsed(), 5000);
    EXPECT_TRUE(wordsOf(shown).startsWith(u"sway "_s));
    EXPECT_EQ(m_desktop->screens(), QList<Screen>());
    EXPECT_NE(m_desktop->setPicture(save(library(u"it's/two.png"_s), 80), screens), kDone);
    EXPECT_EQ(copies(), QStringList()) << "no failure leaves a copy behind that nobody shows";
}

TEST_F(SwayScreensTest, aSwayThatHangsIsGivenUp)
{
    const QList<Screen> screens = m_desktop->screens();
    const QString path = save(library(u"one.png"_s), 40);
    DesktopPictureSway impatient(m_sway->socketPath(), QString(), std::chrono::milliseconds(200));
    m_sway->program().signal(SIGSTOP);
    EXPECT_EQ(impatient.setPicture(path, screens), Failure{u"sway does not answer"_s});
    EXPECT_EQ(impatient.screens(), QList<Screen>());
}

} // namespace quorvane
