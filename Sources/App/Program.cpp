#include "App/Program.h"

#include "App/CommandLine.h"
#include "App/Commands.h"
#include "App/Console.h"
#include "App/ControlCalls.h"
#include "App/ControlService.h"
#include "App/InstanceLock.h"
#include "App/WallpaperApp.h"
#include "Platform/SessionBus.h"

#include <QGuiApplication>
#include <QNetworkProxyFactory>

#include <cstring>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Program)
};

int fail(const QString &problem, int status = kFailed)
{
    Console::printError(QStringLiteral("quorvane: ") + problem);
    return status;
}

enum class Role { Application, Done, Failed };

/// Becomes the application, or hands over to the one that runs.
Role takeRole(ControlService &control, InstanceLock &lock, const CommandLine &line)
{
    // The other one may be ending while it is asked, so the name may be free at the next look.
    constexpr int kTries = 3;
    for (int attempt = 0; attempt < kTries; ++attempt) {
        const ControlService::Claim claim = control.claim();
        if (claim == ControlService::Claim::Owned || (claim == ControlService::Claim::NoBus && lock.take())) {
            return Role::Application;
        }
        if (line.hidden ||
            (claim == ControlService::Claim::Taken ? control.activateOther() : InstanceLock::activateOther())) {
            return Role::Done;
        }
    }
    return Role::Failed;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

/// Where nothing can be shown, the application that runs elsewhere in the session can still be asked to show itself.
int runWithoutDisplay()
{
    SessionBus bus;
    if (bus.isConnected() ? ControlService(bus).activateOther() : InstanceLock::activateOther()) {
        return kDone;
    }
    return fail(Tr::tr("there is no display; see quorvane --help for what needs none"));
}

int runApplication(const CommandLine &line, const SceneUrls &urls)
{
    SessionBus bus;
    ControlService control(bus);
    InstanceLock lock;
    const Role role = takeRole(control, lock, line);
    if (role != Role::Application) {
        return role == Role::Done ? kDone : fail(Tr::tr("the application runs already and does not answer"));
    }
    WallpaperApp app(bus, control, urls);
    QObject::connect(&lock, &InstanceLock::activated, &app, &WallpaperApp::openMain);
    if (!line.hidden) {
        const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
        QMetaObject::invokeMethod(
            &app, [&app, token] { app.openMain(token); }, Qt::QueuedConnection);
    }
    return QCoreApplication::exec();
}

} // namespace

int runProgram(int argc, char **argv, const SceneUrls &urls)
{
    QCoreApplication::setApplicationName(QStringLiteral("Quorvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUORVANE_VERSION));
    QStringList arguments;
    for (int index = 1; index < argc; ++index) {
        arguments.append(QString::fromLocal8Bit(argv[index]));
    }
    const auto parsed = parseCommandLine(arguments);
    if (const auto *problem = std::get_if<QString>(&parsed)) {
        return fail(*problem, kWrongCommandLine);
    }
    const auto &line = std::get<CommandLine>(parsed);
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    if (line.verb != CommandLine::Verb::Start || !hasDisplay()) {
        const QCoreApplication application(argc, argv);
        return line.verb == CommandLine::Verb::Start ? runWithoutDisplay() : runCommand(line);
    }
    const QGuiApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(Control::busName());
    return runApplication(line, urls);
}

} // namespace quorvane
