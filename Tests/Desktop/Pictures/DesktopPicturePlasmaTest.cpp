// KDE Plasma as it is, with two screens, once on X11 and once on Wayland, judged by what it shows.

#include "Platform/Desktops/DesktopPicturePlasma.h"

#include "BigDesktops.h"

#include "Platform/Bus/MessageBus.h"
#include "Platform/Desktops/Protocols/PlasmaScript.h"
#include "Platform/Files/Paths.h"
#include "Support/Desktop/PositionPicture.h"
#include "Support/Desktop/PrivateSession.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/Desktop/PrivateXorg.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/Results.h"
#include "Support/WaitFor.h"

#include <QStandardPaths>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr QSize kSource(1200, 1000);
/// A cross-fade, and a machine that draws without a graphics card.
constexpr std::chrono::seconds kDrawingLimit{60};
constexpr std::chrono::seconds kStartLimit{120};

/// Started by path: it is in no folder of programs.
QString activityManager()
{
    const QStringList folders{u"/usr/lib/x86_64-linux-gnu/libexec"_s, u"/usr/lib/aarch64-linux-gnu/libexec"_s,
                              u"/usr/libexec"_s, u"/usr/lib/libexec"_s};
    return QStandardPaths::findExecutable(u"kactivitymanagerd"_s, folders);
}

/// The daemon of the Plasma that is installed, 6 or 5.
QString settingsDaemon()
{
    const QString newer = QStandardPaths::findExecutable(u"kded6"_s);
    return newer.isEmpty() ? QStandardPaths::findExecutable(u"kded5"_s) : newer;
}

} // namespace

class DesktopPicturePlasmaTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        if (!bigDesktopsAreWanted()) {
            GTEST_SKIP() << kBigDesktopsText;
        }
        m_missing = PrivateSession::missingProgram();
        if (m_missing.isEmpty()) {
            m_missing = firstMissing({u"plasmashell"_s});
        }
        if (m_missing.isEmpty() && (activityManager().isEmpty() || settingsDaemon().isEmpty())) {
            m_missing = u"kactivitymanagerd or kded"_s;
        }
    }

    [[nodiscard]] static QString missingOnX11()
    {
        const QString missing = PrivateXorg::missingProgram();
        return missing.isEmpty() ? firstMissing({u"kwin_x11"_s}) : missing;
    }

    [[nodiscard]] static QString missingOnWayland()
    {
        const QString missing = PrivateSway::missingProgram();
        if (!missing.isEmpty()) {
            return missing;
        }
        // Plasma 5 needs the older Qt's way to Wayland.
        const QDir libraries(u"/usr/lib"_s);
        const QString version = settingsDaemon().right(1);
        const QStringList triplets = libraries.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        const bool hasPlugin = std::any_of(triplets.begin(), triplets.end(), [&](const QString &triplet) {
            return QFile::exists(libraries.filePath(triplet) +
                                 u"/qt%1/plugins/platforms/libqwayland-generic.so"_s.arg(version));
        });
        return hasPlugin ? firstMissing({u"kwin_wayland"_s}) : u"qtwayland"_s + version;
    }

    /// False where the test ends here.
    [[nodiscard]] bool canRun(const QString &alsoMissing)
    {
        const QString missing = m_missing.isEmpty() ? alsoMissing : m_missing;
        if (missing.isEmpty()) {
            return true;
        }
        ADD_FAILURE() << missing.toStdString() << " is not installed (scripts/install-packages desktops)";
        return false;
    }

    void startOnX11()
    {
        m_server = std::make_unique<PrivateXorg>();
        ASSERT_TRUE(m_server->isReady());
        m_display.x11 = m_server->display();
        prepare();
        m_session->setVariable(u"DISPLAY"_s, QString::fromLatin1(m_display.x11));
        m_session->setVariable(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
        m_session->setVariable(u"XDG_SESSION_TYPE"_s, u"x11"_s);
        m_session->setVariable(u"KWIN_COMPOSE"_s, u"N"_s);
        m_session->keep(u"kwin_x11"_s);
        startPlasma();
    }

    /// Plasma's compositor draws its two screens as windows of another one, side by side.
    void startOnWayland()
    {
        m_sway = std::make_unique<PrivateSway>(QList<QSize>{QSize(2560, 720)},
                                               "default_border none\nfor_window [title=\".*\"] floating enable\n");
        ASSERT_TRUE(m_sway->isReady());
        prepare();
        // A copy has not the rights of the installed one, which a container does not grant.
        const QString compositor = m_session->runtimeFolder() + u"/kwin_wayland"_s;
        ASSERT_TRUE(QFile::copy(QStandardPaths::findExecutable(u"kwin_wayland"_s), compositor));
        ASSERT_TRUE(
            QFile::link(m_sway->runtimeFolder() + u"/wayland-1"_s, m_session->runtimeFolder() + u"/wayland-1"_s));
        QProcessEnvironment &environment = m_session->environment();
        environment.insert(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
        environment.insert(u"KWIN_COMPOSE"_s, u"Q"_s);
        if (settingsDaemon().endsWith('6'_L1)) {
            environment.remove(u"QT_QUICK_BACKEND"_s); // With it, Plasma 6 leaves the desktops black here.
        }
        const OwnedProgram &running =
            m_session->keep(compositor, u"--wayland-display wayland-1 --width 1280 --height 720 --output-count 2 "
                                        "--socket wayland-9 --no-lockscreen --no-global-shortcuts"_s.split(' '_L1));
        m_display.wayland = m_session->runtimeFolder() + u"/wayland-9"_s;
        ASSERT_TRUE(waitFor([&] { return m_display.screens(std::chrono::seconds(1)).size() == 2; }, kStartLimit));
        ASSERT_TRUE(running.isRunning());
        for (int screen = 0; screen < 2; ++screen) {
            const QString move = u"[title=\"WL-%1\"] move absolute position %2 0"_s.arg(screen).arg(1280 * screen);
            ASSERT_TRUE(waitFor([&] { return !outputOf(u"swaymsg"_s, {move}, m_sway->clientEnvironment()).isNull(); }));
        }
        environment.insert(u"WAYLAND_DISPLAY"_s, u"wayland-9"_s);
        environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
        startPlasma();
    }

    void prepare()
    {
        m_session = std::make_unique<PrivateSession>(QProcessEnvironment(), OwnedProgram::User::Same);
        ASSERT_TRUE(m_session->isReady());
        QProcessEnvironment &environment = m_session->environment();
        environment.insert(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
        environment.insert(u"KDE_FULL_SESSION"_s, u"true"_s);
        environment.insert(u"KDE_SESSION_VERSION"_s, settingsDaemon().right(1));
        environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
    }

    void startPlasma()
    {
        m_session->keep(activityManager());
        m_session->keep(settingsDaemon());
        startShell();
        m_desktop = std::make_unique<DesktopPicturePlasma>(m_session->busAddress(), m_display, QString());
    }

    void startShell()
    {
        m_shell = &m_session->keep(u"plasmashell"_s, {u"--no-respawn"_s});
        ASSERT_TRUE(waitForDesktops(2)) << m_shell->errors().constData();
    }

    /// Plasma has come so far that it has a desktop for each screen.
    [[nodiscard]] bool waitForDesktops(int count) const
    {
        const MessageBus bus(m_session->busAddress());
        return waitFor(
            [&] {
                const auto answer = bus.until(QDeadlineTimer(1000))
                                        .call(u"org.kde.plasmashell"_s, u"/PlasmaShell"_s, u"org.kde.PlasmaShell"_s,
                                              u"evaluateScript"_s, {PlasmaScript::reading()});
                const auto report = PlasmaScript::reportOf(answer ? answer->value(0).toString() : QString());
                return report && report->visible() == count;
            },
            kStartLimit);
    }

    /// Puts a picture at name as the library does: whole, in place of what was there.
    [[nodiscard]] QString save(const QString &name, int mark) const
    {
        const QString path = m_home.library() + '/'_L1 + name;
        QDir().mkpath(QFileInfo(path).path());
        const QString draft = m_home.path() + u"/draft.png"_s;
        EXPECT_TRUE(positionPicture(kSource, mark).save(draft));
        EXPECT_EQ(::rename(QFile::encodeName(draft).constData(), QFile::encodeName(path).constData()), 0);
        return path;
    }

    [[nodiscard]] static QStringList copies()
    {
        return QDir(Paths::stateHome() + u"/quorvane"_s).entryList(QDir::Files | QDir::Hidden);
    }

    [[nodiscard]] QImage screenshot() const
    {
        return m_server ? m_server->rootWindow() : m_sway->screenshot(u"HEADLESS-1"_s);
    }

    [[nodiscard]] QRect area(int screen) const
    {
        return m_server ? m_server->areas().value(screen) : QRect(1280 * screen, 0, 1280, 720);
    }

    /// Why one of the screens does not come to show the picture with the mark; empty when all do.
    [[nodiscard]] QString waitForPicture(int mark, int screens = 2) const
    {
        QString found;
        (void)waitFor(
            [&] {
                const QImage shot = screenshot();
                found.clear();
                for (int screen = 0; screen < screens; ++screen) {
                    found += differenceFromFill(shot.copy(area(screen)), kSource, mark);
                }
                return found.isEmpty();
            },
            kDrawingLimit);
        const QByteArray folder = qgetenv("QUORVANE_TEST_SCREENSHOTS");
        if (!folder.isEmpty()) {
            const QString where = m_server ? u"x11"_s : u"wayland"_s;
            screenshot().save(QFile::decodeName(folder) + u"/plasma-%1-%2.png"_s.arg(where).arg(mark));
        }
        return found;
    }

    PrivateHome m_home;
    QString m_missing;
    SessionDisplay m_display;
    std::unique_ptr<PrivateXorg> m_server;
    std::unique_ptr<PrivateSway> m_sway;
    std::unique_ptr<PrivateSession> m_session;
    OwnedProgram *m_shell = nullptr;
    std::unique_ptr<DesktopPicturePlasma> m_desktop;
};

TEST_F(DesktopPicturePlasmaTest, fillsEveryScreenAndRefreshesTheSamePath)
{
    if (!canRun(missingOnX11())) {
        return;
    }
    ASSERT_NO_FATAL_FAILURE(startOnX11());
    const QList<Screen> screens = m_desktop->screens();
    EXPECT_EQ(screens, (QList<Screen>{{u"DUMMY0"_s, QSize(1280, 720)}, {u"DUMMY1"_s, QSize(800, 600)}}));
    const QString name = QString::fromUtf8("o'brien $(touch x) #1 100% \"q\" ;\\ \n Ünïcødé 日本/one.png");
    const QString path = save(name, 40);
    ASSERT_EQ(m_desktop->setPicture(path, screens), kDone);
    EXPECT_EQ(waitForPicture(40), QString());
    EXPECT_EQ(copies(), QStringList()) << "a new path needs no copy";

    // Plasma itself would go on showing what it once read under the name.
    ASSERT_EQ(m_desktop->setPicture(save(name, 120), screens), kDone);
    EXPECT_EQ(waitForPicture(120), QString());
    const QStringList first = copies();
    EXPECT_EQ(first.size(), 1);
    ASSERT_EQ(m_desktop->setPicture(path, screens), kDone);
    EXPECT_EQ(copies(), first) << "what is shown already is not copied again";
    ASSERT_EQ(m_desktop->setPicture(save(name, 200), screens), kDone);
    EXPECT_EQ(waitForPicture(200), QString());
    EXPECT_EQ(copies().size(), 1) << "the copy before is deleted";

    // A process that knows nothing of the one before.
    DesktopPicturePlasma other(m_session->busAddress(), m_display, QString());
    ASSERT_EQ(other.setPicture(save(name, 80), screens), kDone);
    EXPECT_EQ(waitForPicture(80), QString());

    // Another picture in between.
    ASSERT_EQ(other.setPicture(save(u"two.png"_s, 160), screens), kDone);
    EXPECT_EQ(waitForPicture(160), QString());
    ASSERT_EQ(other.setPicture(save(name, 240), screens), kDone);
    EXPECT_EQ(waitForPicture(240), QString());
}

TEST_F(DesktopPicturePlasmaTest, aScreenThatIsPluggedInGetsThePictureToo)
{
    if (!canRun(missingOnX11())) {
        return;
    }
    ASSERT_NO_FATAL_FAILURE(startOnX11());
    const QString path = save(u"one.png"_s, 90);
    ASSERT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    ASSERT_EQ(waitForPicture(90), QString());
    ASSERT_TRUE(m_server->plugIn());
    ASSERT_TRUE(waitFor([&] { return m_desktop->screens().size() == 3; }));
    // At once, when Plasma may not have a desktop for it yet.
    EXPECT_EQ(m_desktop->setPicture(path, m_desktop->screens()), kDone);
    EXPECT_EQ(waitForPicture(90, 3), QString());
}

TEST_F(DesktopPicturePlasmaTest, aShellThatIsKilledOrHangsIsAnErrorAndTheNextOneShowsThePicture)
{
    if (!canRun(missingOnX11())) {
        return;
    }
    ASSERT_NO_FATAL_FAILURE(startOnX11());
    const QList<Screen> screens = m_desktop->screens();
    const QString path = save(u"one.png"_s, 50);
    ASSERT_EQ(m_desktop->setPicture(path, screens), kDone);
    ASSERT_EQ(waitForPicture(50), QString());
    const Result<> missing = m_desktop->setPicture(m_home.path() + u"/missing.png"_s, screens);
    EXPECT_TRUE(wordsOf(missing).contains(u"cannot be read"_s));
    ASSERT_TRUE(putFile(m_home.path() + u"/broken.png"_s, "no picture"));
    EXPECT_NE(m_desktop->setPicture(m_home.path() + u"/broken.png"_s, screens), kDone);

    m_shell->signal(SIGSTOP);
    DesktopPicturePlasma impatient(m_session->busAddress(), m_display, QString(), std::chrono::milliseconds(500));
    EXPECT_NE(impatient.setPicture(save(u"two.png"_s, 130), screens), kDone);
    m_shell->signal(SIGKILL);
    const MessageBus bus(m_session->busAddress());
    ASSERT_TRUE(waitFor([&] { return !bus.until(QDeadlineTimer(1000)).isOwned(u"org.kde.plasmashell"_s); }));
    const Result<> gone = m_desktop->setPicture(path, screens);
    EXPECT_TRUE(wordsOf(gone).contains(u"org.kde.plasmashell is not on the session bus"_s));

    ASSERT_NO_FATAL_FAILURE(startShell());
    ASSERT_EQ(m_desktop->setPicture(save(u"three.png"_s, 210), screens), kDone);
    EXPECT_EQ(waitForPicture(210), QString());
}

TEST_F(DesktopPicturePlasmaTest, fillsEveryScreenOnWaylandToo)
{
    if (!canRun(missingOnWayland())) {
        return;
    }
    ASSERT_NO_FATAL_FAILURE(startOnWayland());
    const QList<Screen> screens = m_desktop->screens();
    ASSERT_EQ(screens.size(), 2);
    EXPECT_EQ(screens.constLast().pixels, QSize(1280, 720));
    const QString path = save(QString::fromUtf8("o'brien #1 100% \"q\" \n 日本/one.png"), 40);
    ASSERT_EQ(m_desktop->setPicture(path, screens), kDone);
    EXPECT_EQ(waitForPicture(40), QString());
    ASSERT_TRUE(positionPicture(kSource, 120).save(path));
    ASSERT_EQ(m_desktop->setPicture(path, screens), kDone);
    EXPECT_EQ(waitForPicture(120), QString());
}

} // namespace quorvane
