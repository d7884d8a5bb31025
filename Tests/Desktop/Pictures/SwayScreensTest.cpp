#include "Platform/Desktops/DesktopPictureSway.h"
#include "Platform/Files/Paths.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"
#include "Support/WaitFor.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>

#include <gtest/gtest.h>

#include <csignal>
#include <thread>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kFirst = u"HEADLESS-1"_s;
const QString kSecond = u"HEADLESS-2"_s;

/// Wide on one screen, high on the other, so that each crops another pair of edges.
constexpr QSize kSource(1200, 1000);

class SwayScreensTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing = PrivateSway::missingProgram();
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        // sway runs as another user where the tests run as root, and must be able to read the pictures.
        QFile::setPermissions(m_home.path(), QFile::Permissions(0x7055));
        m_sway = std::make_unique<PrivateSway>(QList<QSize>{QSize(800, 450), QSize(400, 600)});
        ASSERT_TRUE(m_sway->isReady());
        m_desktop = std::make_unique<DesktopPictureSway>(m_sway->socketPath(), QString());
    }

    QString save(const QString &path, int mark, const char *format = "png")
    {
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(QImageWriter(path, format).write(positionPicture(kSource, mark)));
        return path;
    }

    QString library(const QString &name) { return m_home.library() + '/'_L1 + name; }

    /// Why the screens do not come to show the picture with the mark; empty when they do.
    QString waitForPicture(int mark)
    {
        QString first;
        QString second;
        (void)waitFor(
            [&] {
                first = differenceFromFill(m_sway->screenshot(kFirst), kSource, mark);
                second = differenceFromFill(m_sway->screenshot(kSecond), kSource, mark);
                return first.isEmpty() && second.isEmpty();
            },
            std::chrono::seconds(5));
        return first + second;
    }

    QStringList copies() { return QDir(Paths::stateHome() + u"/quorvane"_s).entryList(QDir::Files | QDir::Hidden); }

    PrivateHome m_home;
    std::unique_ptr<PrivateSway> m_sway;
    std::unique_ptr<DesktopPictureSway> m_desktop;
};

} // namespace

TEST_F(SwayScreensTest, listsTheActiveOutputsWithTheSizesTheyHaveAsTheyAreTurned)
{
    // Each version of sway tells them in another order.
    const QList<Screen> screens = m_desktop->screens();
    EXPECT_EQ(screens.size(), 2);
    EXPECT_TRUE(screens.contains({kFirst, QSize(800, 450)}));
    EXPECT_TRUE(screens.contains({kSecond, QSize(400, 600)}));
    const QStringList turn{u"output HEADLESS-1 transform 90 scale 2"_s};
    ASSERT_FALSE(outputOf(u"swaymsg"_s, turn, m_sway->clientEnvironment()).isNull());
    EXPECT_TRUE(waitFor([&] { return m_desktop->screens().contains({kFirst, QSize(450, 800)}); }));
}

TEST_F(SwayScreensTest, fillsEachScreenAroundTheCentreAndRefreshesTheSamePath)
{
    const QString path = save(library(u"one.png"_s), 40);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(40), QString());
    EXPECT_EQ(copies(), QStringList()) << "a plain path needs no copy";
    const QByteArray screenshots = qgetenv("QUORVANE_TEST_SCREENSHOTS");
    if (!screenshots.isEmpty()) {
        m_sway->screenshot(kFirst).save(QFile::decodeName(screenshots) + u"/sway-1.png"_s);
        m_sway->screenshot(kSecond).save(QFile::decodeName(screenshots) + u"/sway-2.png"_s);
    }

    save(path, 200);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(200), QString());
}

TEST_F(SwayScreensTest, showsPicturesFromFoldersWithAnyNameAndRunsNothingInThem)
{
    const QString name = QString::fromUtf8("o'brien $(touch x) `touch x` #1 100% \"q\" ;,\\ \n Ünïcødé 日本");
    const QString path = save(library(name + u"/picture.png"_s), 120);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(120), QString());
    const QStringList first = copies();
    EXPECT_EQ(first.size(), 1);

    save(path, 220);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(220), QString());
    EXPECT_EQ(copies().size(), 1) << "the copy before is deleted";
    EXPECT_NE(copies(), first) << "the new one has a new name";
    EXPECT_FALSE(QFile::exists(m_sway->runtimeFolder() + u"/x"_s));
    EXPECT_FALSE(QFile::exists(u"x"_s));

    // Back at a plain path nothing needs the copy any more.
    ASSERT_EQ(m_desktop->setPicture(save(library(u"plain.png"_s), 10), m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(10), QString());
    EXPECT_EQ(copies(), QStringList());
}

TEST_F(SwayScreensTest, usesTheSessionFolderWhereTheHomeHasAnAwkwardNameToo)
{
    const QString stateHome = m_home.path() + u"/it's mine"_s;
    const QString session = m_home.path() + u"/session"_s;
    qputenv("XDG_STATE_HOME", QFile::encodeName(stateHome));
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(session));
    const QString path = save(library(u"it's/picture.png"_s), 70);
    EXPECT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(70), QString());
    EXPECT_EQ(QDir(session + u"/quorvane"_s).entryList(QDir::Files).size(), 1);
    EXPECT_FALSE(QFile::exists(stateHome + u"/quorvane"_s));
    before.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before);
}

TEST_F(SwayScreensTest, showsFormatsThatSwaysOwnProgramMayNotRead)
{
    const QString path = save(library(u"picture.png"_s), 90, "bmp");
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(90), QString());
    EXPECT_EQ(copies().size(), 1);
}

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
