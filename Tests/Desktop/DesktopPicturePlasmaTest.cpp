// KDE Plasma as it is, with two screens, once on X11 and once on Wayland, judged by what it shows.

#include "Platform/DesktopPicturePlasma.h"

#include "DesktopSession.h"

#include "Platform/BusClient.h"
#include "Platform/Paths.h"
#include "Platform/PlasmaScript.h"
#include "Support/Files.h"
#include "Support/PluggableXServer.h"
#include "Support/PositionPicture.h"
#include "Support/PrivateHome.h"
#include "Support/PrivateSway.h"
#include "Support/WaitFor.h"

#include <QStandardPaths>

#include <gtest/gtest.h>

namespace quorvane {

namespace {

constexpr QSize kSource(1200, 1000);
/// A cross-fade, and a machine that draws without a graphics card.
constexpr std::chrono::seconds kDrawingLimit{60};
constexpr std::chrono::seconds kStartLimit{120};

/// Started by path: it is in no folder of programs.
QString activityManager()
{
    const QStringList folders{QStringLiteral("/usr/lib/x86_64-linux-gnu/libexec"),
                              QStringLiteral("/usr/lib/aarch64-linux-gnu/libexec"), QStringLiteral("/usr/libexec"),
                              QStringLiteral("/usr/lib/libexec")};
    return QStandardPaths::findExecutable(QStringLiteral("kactivitymanagerd"), folders);
}

/// The picture is crossed by the panel at the bottom of the first screen, so what is compared is what lies above.
QString difference(const QImage &shot, int mark)
{
    return differenceFromFill(shot, kSource, mark);
}

} // namespace

class DesktopPicturePlasmaTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        QString missing = DesktopSession::missing({QStringLiteral("plasmashell"), QStringLiteral("kded5")});
        if (missing.isEmpty() && activityManager().isEmpty()) {
            missing = QStringLiteral("kactivitymanagerd");
        }
        m_missing = missing;
    }

    /// False where the test ends here.
    [[nodiscard]] bool canRun(const QString &alsoMissing)
    {
        const QString missing = m_missing.isEmpty() ? alsoMissing : m_missing;
        if (missing.isEmpty()) {
            return true;
        }
        const std::string text = missing.toStdString() + " is not installed (scripts/install-packages desktops)";
        [&] {
            if (DesktopSession::mustRun()) {
                FAIL() << text;
            }
            GTEST_SKIP() << text;
        }();
        return false;
    }

    void startOnX11()
    {
        m_server = std::make_unique<PluggableXServer>(2);
        ASSERT_TRUE(m_server->isReady());
        m_display.x11 = m_server->display();
        prepare();
        m_session->environment().insert(QStringLiteral("DISPLAY"), QString::fromLatin1(m_display.x11));
        m_session->environment().insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        m_session->environment().insert(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("x11"));
        m_session->environment().insert(QStringLiteral("KWIN_COMPOSE"), QStringLiteral("N"));
        m_session->start(QStringLiteral("kwin_x11"));
        startPlasma();
    }

    void prepare()
    {
        m_session = std::make_unique<DesktopSession>();
        ASSERT_TRUE(m_session->isReady());
        QProcessEnvironment &environment = m_session->environment();
        environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("KDE"));
        environment.insert(QStringLiteral("KDE_FULL_SESSION"), QStringLiteral("true"));
        environment.insert(QStringLiteral("KDE_SESSION_VERSION"), QStringLiteral("5"));
        environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    }

    void startPlasma()
    {
        m_session->start(activityManager());
        m_session->start(QStringLiteral("kded5"));
        startShell();
        m_desktop = std::make_unique<DesktopPicturePlasma>(m_session->busAddress(), m_display, QString());
    }

    void startShell()
    {
        m_shell = &m_session->start(QStringLiteral("plasmashell"), {QStringLiteral("--no-respawn")});
        ASSERT_TRUE(waitForDesktops(2)) << m_shell->errors().constData();
    }

    /// Plasma has come so far that it has a desktop for each screen.
    [[nodiscard]] bool waitForDesktops(int count) const
    {
        BusClient client(m_session->busAddress());
        return waitFor(
            [&] {
                const auto answer = client.call(QDBusMessage::createMethodCall(QStringLiteral("org.kde.plasmashell"),
                                                                               QStringLiteral("/PlasmaShell"),
                                                                               QStringLiteral("org.kde.PlasmaShell"),
                                                                               QStringLiteral("evaluateScript")),
                                                {PlasmaScript::reading()}, QDeadlineTimer(1000));
                const auto report = PlasmaScript::reportOf(answer.arguments.value(0).toString());
                return report && report->visible() == count;
            },
            kStartLimit);
    }

    /// Puts a picture at name as the library does: whole, in place of what was there.
    [[nodiscard]] QString save(const QString &name, int mark) const
    {
        const QString path = m_home.library() + QLatin1Char('/') + name;
        QDir().mkpath(QFileInfo(path).path());
        const QString draft = m_home.path() + QStringLiteral("/draft.png");
        EXPECT_TRUE(positionPicture(kSource, mark).save(draft));
        EXPECT_EQ(::rename(QFile::encodeName(draft).constData(), QFile::encodeName(path).constData()), 0);
        return path;
    }

    [[nodiscard]] static QStringList copies()
    {
        return QDir(Paths::stateHome() + QStringLiteral("/quorvane")).entryList(QDir::Files | QDir::Hidden);
    }

    /// Why one of the screens does not come to show the picture with the mark; empty when all do.
    [[nodiscard]] QString waitForPicture(int mark, int screens = 2) const
    {
        QString found;
        const bool shown = waitFor(
            [&] {
                const QImage shot = m_server->screenshot();
                found.clear();
                for (int screen = 0; screen < screens; ++screen) {
                    found += difference(shot.copy(PluggableXServer::area(screen)), mark);
                }
                return found.isEmpty();
            },
            kDrawingLimit);
        keep(QStringLiteral("plasma-x11-%1.png").arg(mark));
        return shown ? QString() : found;
    }

    void keep(const QString &name) const
    {
        const QByteArray folder = qgetenv("QUORVANE_TEST_SCREENSHOTS");
        if (!folder.isEmpty()) {
            m_server->screenshot().save(QFile::decodeName(folder) + QLatin1Char('/') + name);
        }
    }

    PrivateHome m_home;
    QString m_missing;
    SessionDisplay m_display;
    std::unique_ptr<PluggableXServer> m_server;
    std::unique_ptr<PrivateSway> m_sway;
    std::unique_ptr<DesktopSession> m_session;
    OwnedProgram *m_shell = nullptr;
    std::unique_ptr<DesktopPicturePlasma> m_desktop;
};

TEST_F(DesktopPicturePlasmaTest, fillsEveryScreenAndRefreshesTheSamePath)
{
    if (!canRun(PluggableXServer::missingProgram())) {
        return;
    }
    ASSERT_NO_FATAL_FAILURE(startOnX11());
    EXPECT_TRUE(DesktopPicturePlasma::answers(m_session->busAddress()));
    const QList<Screen> screens = m_desktop->screens();
    EXPECT_EQ(screens, (QList<Screen>{{QStringLiteral("DUMMY0"), QSize(1280, 720)},
                                      {QStringLiteral("DUMMY1"), QSize(800, 600)}}));
    const QString name = QString::fromUtf8("o'brien $(touch x) #1 100% \"q\" ;\\ \n Ünïcødé 日本/one.png");
    const QString path = save(name, 40);
    ASSERT_EQ(m_desktop->setPicture(path, screens), std::nullopt);
    EXPECT_EQ(waitForPicture(40), QString());
    EXPECT_EQ(copies(), QStringList()) << "a new path needs no copy";

    // Plasma itself would go on showing what it once read under the name.
    ASSERT_EQ(m_desktop->setPicture(save(name, 120), screens), std::nullopt);
    EXPECT_EQ(waitForPicture(120), QString());
    const QStringList first = copies();
    EXPECT_EQ(first.size(), 1);
    ASSERT_EQ(m_desktop->setPicture(path, screens), std::nullopt);
    EXPECT_EQ(copies(), first) << "what is shown already is not copied again";
    ASSERT_EQ(m_desktop->setPicture(save(name, 200), screens), std::nullopt);
    EXPECT_EQ(waitForPicture(200), QString());
    EXPECT_EQ(copies().size(), 1) << "the copy before is deleted";

    // A process that knows nothing of the one before.
    DesktopPicturePlasma other(m_session->busAddress(), m_display, QString());
    ASSERT_EQ(other.setPicture(save(name, 80), screens), std::nullopt);
    EXPECT_EQ(waitForPicture(80), QString());

    // Another picture in between.
    ASSERT_EQ(other.setPicture(save(QStringLiteral("two.png"), 160), screens), std::nullopt);
    EXPECT_EQ(waitForPicture(160), QString());
    ASSERT_EQ(other.setPicture(save(name, 240), screens), std::nullopt);
    EXPECT_EQ(waitForPicture(240), QString());
}

TEST_F(DesktopPicturePlasmaTest, aScreenThatIsPluggedInGetsThePictureToo)
{
    if (!canRun(PluggableXServer::missingProgram())) {
        return;
    }
    ASSERT_NO_FATAL_FAILURE(startOnX11());
    const QString path = save(QStringLiteral("one.png"), 90);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), std::nullopt);
    ASSERT_EQ(waitForPicture(90), QString());
    ASSERT_TRUE(m_server->plugIn());
    ASSERT_TRUE(waitFor([&] { return m_desktop->screens().size() == 3; }));
    // At once, when Plasma may not have a desktop for it yet.
    EXPECT_EQ(m_desktop->setPicture(path, m_desktop->screens()), std::nullopt);
    EXPECT_EQ(waitForPicture(90, 3), QString());
}

TEST_F(DesktopPicturePlasmaTest, aShellThatIsKilledOrHangsIsAnErrorAndTheNextOneShowsThePicture)
{
    if (!canRun(PluggableXServer::missingProgram())) {
        return;
    }
    ASSERT_NO_FATAL_FAILURE(startOnX11());
    const QList<Screen> screens = m_desktop->screens();
    const QString path = save(QStringLiteral("one.png"), 50);
    ASSERT_EQ(m_desktop->setPicture(path, screens), std::nullopt);
    ASSERT_EQ(waitForPicture(50), QString());
    const auto missing = m_desktop->setPicture(m_home.path() + QStringLiteral("/missing.png"), screens);
    EXPECT_TRUE(missing && missing->contains(QStringLiteral("cannot be read")));
    ASSERT_TRUE(putFile(m_home.path() + QStringLiteral("/broken.png"), "no picture"));
    EXPECT_NE(m_desktop->setPicture(m_home.path() + QStringLiteral("/broken.png"), screens), std::nullopt);

    m_shell->signal(SIGSTOP);
    DesktopPicturePlasma impatient(m_session->busAddress(), m_display, QString(), std::chrono::milliseconds(500));
    EXPECT_NE(impatient.setPicture(save(QStringLiteral("two.png"), 130), screens), std::nullopt);
    m_shell->signal(SIGKILL);
    ASSERT_TRUE(waitFor([&] { return !DesktopPicturePlasma::answers(m_session->busAddress()); }));
    const auto gone = m_desktop->setPicture(path, screens);
    EXPECT_TRUE(gone && gone->contains(QStringLiteral("org.kde.plasmashell is not on the session bus")));

    ASSERT_NO_FATAL_FAILURE(startShell());
    ASSERT_EQ(m_desktop->setPicture(save(QStringLiteral("three.png"), 210), screens), std::nullopt);
    EXPECT_EQ(waitForPicture(210), QString());
}

} // namespace quorvane
