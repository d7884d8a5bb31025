// A desktop starts the installed program: by its desktop entry, which asks the bus, which knows the installed service.

#include "InstalledTree.h"

#include "App/Control/ControlCalls.h"
#include "Support/Desktop/PrivateXServer.h"
#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDBusVariant>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quorvane {

class InstalledActivationTest : public InstalledTest
{
  protected:
    void SetUp() override
    {
        QString missing = whyNoBus();
        if (missing.isEmpty() && !(missing = PrivateXServer::missingProgram()).isEmpty()) {
            missing += u" is not installed"_s;
        }
        for (const char *name : {"gio", "gapplication", "xwininfo"}) {
            if (missing.isEmpty() && QStandardPaths::findExecutable(QLatin1String(name)).isEmpty()) {
                missing = QLatin1String(name) + u" is not installed"_s;
            }
        }
        if (!missing.isEmpty()) {
            GTEST_SKIP() << qPrintable(missing);
        }
        InstalledTest::SetUp();
        m_display = std::make_unique<PrivateXServer>(QSize(1280, 800));
        ASSERT_TRUE(m_display->isReady());
        // What the bus starts gets the bus's environment.
        session.environment().insert(u"DISPLAY"_s, QString::fromUtf8(m_display->display()));
        ASSERT_TRUE(session.startBus(contentOf(installed(u"share/dbus-1/services/app.quorvane.Quorvane.service"_s))));
    }
    void TearDown() override
    {
        if (m_display && isOnBus()) {
            EXPECT_EQ(run({u"quit"_s}).status, 0);
        }
    }

    [[nodiscard]] bool isOnBus() const
    {
        return session.connection().interface()->isServiceRegistered(Control::busName()).value();
    }

    /// Waits until a window with that title is on the display.
    [[nodiscard]] bool hasWindow(const QByteArray &title)
    {
        return waitFor([&] { return windows().contains('"' + title + "\": (\"quorvane\" \"Quorvane\")"); });
    }
    [[nodiscard]] QByteArray windows() { return runOther(u"xwininfo"_s, {u"-root"_s, u"-tree"_s}).output; }

    [[nodiscard]] QVariant property(const QString &name) const
    {
        QDBusMessage get = QDBusMessage::createMethodCall(Control::busName(), Control::objectPath(),
                                                          u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
        get.setArguments({Control::interfaceName(), name});
        get.setAutoStartService(false);
        return session.connection().call(get).arguments().value(0).value<QDBusVariant>().variant();
    }

    /// The process that owns the name, as the kernel sees it.
    [[nodiscard]] QString processFile(const QString &name) const
    {
        const uint pid = session.connection().interface()->servicePid(Control::busName()).value();
        return u"/proc/%1/%2"_s.arg(pid).arg(name);
    }

    /// The first argument it was started with.
    [[nodiscard]] std::string argumentOfTheProcess() const
    {
        return contentOf(processFile(u"cmdline"_s)).split('\0').value(1).toStdString();
    }

  private:
    std::unique_ptr<PrivateXServer> m_display;
};

TEST_F(InstalledActivationTest, aLauncherOpensTheWindowByTheBus)
{
    // What GNOME's shell does, and every program that asks GLib for the desktop entry by its name.
    // It waits for the answer, as a shell lives on: the bus forgets what a caller asked that is gone.
    const QString launch = u"import sys\n"
                           "from gi.repository import Gio, GLib\n"
                           "loop = GLib.MainLoop()\n"
                           "entry = Gio.DesktopAppInfo.new(sys.argv[1] + '.desktop')\n"
                           "entry.launch_uris_async([], None, None, lambda source, result: loop.quit())\n"
                           "loop.run()\n"_s;
    const CommandRun launched = runOther(u"/usr/bin/python3"_s, {u"-c"_s, launch, Control::busName()});
    if (launched.errors.contains("No module named 'gi'")) {
        GTEST_SKIP() << "python3-gi is not installed";
    }
    EXPECT_EQ(launched.status, 0) << launched.errors.constData();
    ASSERT_TRUE(hasWindow("Quorvane")) << windows().constData();
    EXPECT_EQ(argumentOfTheProcess(), "--hidden");
}

TEST_F(InstalledActivationTest, theBusStartsItAndTheWindowOpens)
{
    const QStringList launch{u"launch"_s, Control::busName()};
    EXPECT_EQ(runOther(u"gapplication"_s, launch).status, 0);
    ASSERT_TRUE(hasWindow("Quorvane")) << windows().constData();
    EXPECT_EQ(QFile::symLinkTarget(processFile(u"exe"_s)), QFileInfo(program()).canonicalFilePath());
    EXPECT_EQ(argumentOfTheProcess(), "--hidden");
    EXPECT_FALSE(contentOf(processFile(u"maps"_s)).contains(BUILD_FOLDER "/"));
    // Again, while it runs: still the one process.
    const QString process = processFile(u"exe"_s);
    EXPECT_EQ(runOther(u"gapplication"_s, launch).status, 0);
    EXPECT_EQ(processFile(u"exe"_s), process);
}

TEST_F(InstalledActivationTest, theDesktopEntrysCommandOpensTheWindowToo)
{
    const QString entry = installed(u"share/applications/app.quorvane.Quorvane.desktop"_s);
    const CommandRun launched = runOther(u"gio"_s, {u"launch"_s, entry});
    EXPECT_EQ(launched.status, 0) << launched.errors.constData();
    ASSERT_TRUE(hasWindow("Quorvane")) << windows().constData();
    EXPECT_EQ(argumentOfTheProcess(), "");
}

TEST_F(InstalledActivationTest, anActionStartsItWithoutAWindow)
{
    EXPECT_EQ(runOther(u"gapplication"_s, {u"action"_s, Control::busName(), u"toggle-auto"_s}).status, 0);
    ASSERT_TRUE(waitFor([this] { return property(u"AutoEnabled"_s).toBool(); }));
    EXPECT_FALSE(windows().contains("\"Quorvane\": ("));
    EXPECT_EQ(runOther(u"gapplication"_s, {u"action"_s, Control::busName(), u"toggle-auto"_s}).status, 0);
    EXPECT_TRUE(waitFor([this] { return !property(u"AutoEnabled"_s).toBool(); }));
    EXPECT_EQ(runOther(u"gapplication"_s, {u"action"_s, Control::busName(), u"quit"_s}).status, 0);
    EXPECT_TRUE(waitFor([this] { return !isOnBus(); }));
}

TEST_F(InstalledActivationTest, quitAsTheFirstActionEndsWhatItStarted)
{
    const CommandRun asked = runOther(u"gapplication"_s, {u"action"_s, Control::busName(), u"quit"_s});
    EXPECT_EQ(asked.status, 0) << asked.errors.constData();
    EXPECT_TRUE(waitFor([this] { return !isOnBus(); }));
}

TEST_F(InstalledActivationTest, launchersThatDoNotKnowTheBusHaveTheSameActions)
{
    // The first start is the application and stays.
    OwnedProgram first(program(), {u"--action"_s, u"toggle-auto"_s}, session.environment(), session.home().path());
    ASSERT_TRUE(waitFor([this] { return property(u"AutoEnabled"_s).toBool(); }));
    EXPECT_FALSE(windows().contains("\"Quorvane\": ("));
    // Further ones ask it.
    EXPECT_EQ(run({u"--action"_s, u"settings"_s}).status, 0);
    EXPECT_TRUE(hasWindow("Settings")) << windows().constData();
    EXPECT_EQ(run({u"--action"_s, u"toggle-auto"_s}).status, 0);
    EXPECT_FALSE(property(u"AutoEnabled"_s).toBool());
    EXPECT_EQ(run({u"--action"_s, u"quit"_s}).status, 0);
    EXPECT_TRUE(waitFor([this] { return !isOnBus(); }));
}

} // namespace quorvane
