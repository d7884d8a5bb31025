// How quickly the application is there, and how much memory it takes in each state, beside a program with one bare Qt
// Quick window of the same size: in the same session, one after the other. The session is a headless sway with a bus
// of its own; a window counts as shown when sway has its first frame.

#include "Platform/System/GraphicsProcessor.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/ProcessMemory.h"
#include "Support/WaitFor.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

#include <sys/prctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kRuns = 7;
const QString kBusName = u"app.quorvane.Quorvane"_s;

/// Ends everything where it did not happen, because the figures would say nothing.
void expect(bool happened, const char *otherwise)
{
    if (!happened) {
        throw std::runtime_error(otherwise);
    }
}

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// What something took: until it was there, and how much processor time of that the program itself needed.
struct Cost
{
    std::vector<double> elapsed;
    std::vector<double> processor;

    void add(double milliseconds, qint64 ticks)
    {
        elapsed.push_back(milliseconds);
        processor.push_back(static_cast<double>(ticks) * 1000 / static_cast<double>(::sysconf(_SC_CLK_TCK)));
    }
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

/// The watcher of tray icons, with a host.
class Panel : public QDBusVirtualObject
{
  public:
    [[nodiscard]] QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.member() == "RegisterStatusNotifierItem"_L1) {
            ++icons;
            return connection.send(message.createReply());
        }
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(true))));
    }
    int icons = 0;
};

/// A session with nothing else in it.
class Session
{
  public:
    Session()
        : m_sway({QSize(1280, 800)})
        , m_environment(m_sway.clientEnvironment())
    {
        const QString home = m_home.path();
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
            m_environment.insert(QLatin1String(name), home);
        }
        m_environment.insert(u"QUORVANE_WALLPAPER_COMMAND"_s, u"/bin/true"_s);
        m_environment.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
        if (!hasGraphicsProcessor()) {
            // As the application chooses there; both are to draw in the same way.
            m_environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
            m_environment.insert(u"QT_WAYLAND_CLIENT_BUFFER_INTEGRATION"_s, u"none"_s);
        }
        const QString address = u"unix:path="_s + home + u"/bus"_s;
        m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
        m_daemon.start(u"dbus-daemon"_s,
                       {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s, u"--address="_s + address});
        m_daemon.waitForReadyRead();
        m_bus = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(address, u"benchmark"_s));
        m_bus->registerVirtualObject(u"/StatusNotifierWatcher"_s, &m_panel);
        m_bus->registerService(u"org.kde.StatusNotifierWatcher"_s);
        m_events.setProcessEnvironment(m_sway.clientEnvironment());
        m_events.start(u"swaymsg"_s, {u"-rmt"_s, u"subscribe"_s, u"[\"window\"]"_s});
        m_events.waitForStarted();
    }
    ~Session()
    {
        m_events.kill();
        m_events.waitForFinished();
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;
    Session(Session &&) = delete;
    Session &operator=(Session &&) = delete;

    [[nodiscard]] bool isReady() const { return m_sway.isReady() && m_bus->isConnected(); }
    [[nodiscard]] int icons() const { return m_panel.icons; }

    [[nodiscard]] std::unique_ptr<QProcess> start(const QString &program, const QStringList &arguments = {}) const
    {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(m_environment);
        process->setStandardErrorFile(QProcess::nullDevice());
        process->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
        process->start(program, arguments);
        return process;
    }

    /// How often sway told that of a window so far: "new" or "close".
    [[nodiscard]] int windows(const char *change)
    {
        while (m_events.canReadLine()) {
            const QJsonObject event = QJsonDocument::fromJson(m_events.readLine()).object();
            const QString what = event.value("change"_L1).toString();
            m_new += what == "new"_L1 ? 1 : 0;
            m_closed += what == "close"_L1 ? 1 : 0;
        }
        return QLatin1String(change) == "new"_L1 ? m_new : m_closed;
    }

    /// Runs act, and tells how long it was until sway told change.
    [[nodiscard]] double timeUntil(const char *change, const std::function<void()> &act)
    {
        const int before = windows(change);
        QElapsedTimer timer;
        timer.start();
        act();
        expect(waitFor([&] { return windows(change) > before; }), "no window in time");
        return milliseconds(timer);
    }

    void tell(const QString &interface, const QString &method, const QVariantList &arguments) const
    {
        QDBusMessage message = QDBusMessage::createMethodCall(kBusName, u"/app/quorvane/Quorvane"_s, interface, method);
        message.setArguments(arguments);
        m_bus->send(message);
    }
    void closeWindows() const { (void)outputOf(u"swaymsg"_s, {u"[title=\".*\"] kill"_s}, m_sway.clientEnvironment()); }
    [[nodiscard]] bool isOnBus() const { return m_bus->interface()->isServiceRegistered(kBusName).value(); }

  private:
    PrivateSway m_sway;
    QTemporaryDir m_home;
    QProcessEnvironment m_environment;
    QProcess m_daemon;
    QProcess m_events;
    Panel m_panel;
    std::unique_ptr<QDBusConnection> m_bus;
    int m_new = 0;
    int m_closed = 0;
};

void printTime(const char *what, const Cost &ours, const Cost &bare)
{
    std::printf("%-42s %6.0f ms (processor %4.0f)   bare %6.0f ms (processor %4.0f)   ratio %.2f (%.2f)\n", what,
                median(ours.elapsed), median(ours.processor), median(bare.elapsed), median(bare.processor),
                median(ours.elapsed) / median(bare.elapsed), median(ours.processor) / median(bare.processor));
}

void printMemory(const char *what, const ProcessMemory &memory)
{
    std::printf("%-42s resident %6.1f MB   proportional %6.1f MB   anonymous %6.1f MB   files %6.1f MB\n", what,
                static_cast<double>(memory.resident) / 1024, static_cast<double>(memory.proportional) / 1024,
                static_cast<double>(memory.anonymous) / 1024, static_cast<double>(memory.ofFiles()) / 1024);
}

/// The program is to have lived until now, and to end well.
void quit(Session &session, QProcess &process)
{
    expect(process.state() == QProcess::Running, "the program is gone");
    session.tell(u"app.quorvane.Quorvane1"_s, u"Quit"_s, {});
    expect(waitFor([&] { return process.state() == QProcess::NotRunning && !session.isOnBus(); }),
           "the program does not quit");
    expect(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, "the program did not end well");
}

void endBare(QProcess &process)
{
    expect(process.state() == QProcess::Running, "the bare program is gone");
    process.closeWriteChannel();
    expect(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
           "the bare program did not end well");
}

/// Until what a window leaves behind for later is done: what it holds does not shrink any more.
ProcessMemory settled(const QProcess &process)
{
    ProcessMemory last = memoryOf(process.processId());
    QElapsedTimer unchanged;
    unchanged.start();
    const bool isSettled = waitFor([&] {
        const ProcessMemory now = memoryOf(process.processId());
        if (now.anonymous != last.anonymous) {
            last = now;
            unchanged.restart();
        }
        return unchanged.hasExpired(2000);
    });
    expect(isSettled, "the memory does not settle");
    expect(last.resident > 0, "the program is gone");
    return last;
}

void run(Session &session, const QString &program, const QString &bareProgram)
{
    Cost icon;
    Cost frame;
    Cost reopen;
    Cost bareFrame;
    Cost bareReopen;
    const auto activate = [&session] {
        session.tell(u"org.freedesktop.Application"_s, u"Activate"_s, {QVariantMap()});
    };
    for (int each = 0; each < kRuns; ++each) {
        std::unique_ptr<QProcess> process;
        const auto ticks = [&process] { return processorTicksOf(process->processId()); };
        double elapsed = session.timeUntil("new", [&] { process = session.start(bareProgram); });
        bareFrame.add(elapsed, ticks());
        (void)session.timeUntil("close", [&] { process->write("close\n"); });
        qint64 before = ticks();
        elapsed = session.timeUntil("new", [&] { process->write("open\n"); });
        bareReopen.add(elapsed, ticks() - before);
        endBare(*process);

        QElapsedTimer timer;
        timer.start();
        const int icons = session.icons();
        process = session.start(program, {u"--hidden"_s});
        expect(waitFor([&] { return session.icons() > icons; }), "no icon in time");
        icon.add(milliseconds(timer), ticks());
        quit(session, *process);

        elapsed = session.timeUntil("new", [&] { process = session.start(program); });
        frame.add(elapsed, ticks());
        (void)session.timeUntil("close", [&] { session.closeWindows(); });
        before = ticks();
        elapsed = session.timeUntil("new", activate);
        reopen.add(elapsed, ticks() - before);
        quit(session, *process);
    }
    printTime("start to tray icon (bare: first frame)", icon, bareFrame);
    printTime("start to first frame", frame, bareFrame);
    printTime("closed, and opened again, to first frame", reopen, bareReopen);

    std::unique_ptr<QProcess> process;
    (void)session.timeUntil("new", [&] { process = session.start(bareProgram); });
    printMemory("bare, window open", settled(*process));
    (void)session.timeUntil("close", [&] { process->write("close\n"); });
    printMemory("bare, window closed", settled(*process));
    endBare(*process);

    const int before = session.icons();
    process = session.start(program, {u"--hidden"_s});
    expect(waitFor([&] { return session.icons() > before; }), "no icon in time");
    printMemory("in the tray, never opened", settled(*process));
    (void)session.timeUntil("new", activate);
    printMemory("window open", settled(*process));
    (void)session.timeUntil("close", [&] { session.closeWindows(); });
    printMemory("in the tray again", settled(*process));
    (void)session.timeUntil("new", activate);
    printMemory("window open again", settled(*process));
    (void)session.timeUntil("close", [&] { session.closeWindows(); });
    printMemory("in the tray once more", settled(*process));
    quit(session, *process);
}

} // namespace

} // namespace quorvane

int main(int argc, char **argv)
{
    using namespace quorvane;
    const QCoreApplication application(argc, argv);
    const QString missing = PrivateSway::missingProgram();
    if (!missing.isEmpty()) {
        std::fprintf(stderr, "%s is not installed\n", qPrintable(missing));
        return 1;
    }
    try {
        Session session;
        expect(session.isReady(), "the session did not start");
        run(session, QStringLiteral(QUORVANE_PROGRAM), QStringLiteral(BARE_WINDOW_PROGRAM));
        return 0;
    } catch (const std::runtime_error &failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
