#include "App/Application/Program.h"

#include "App/Application/Commands.h"
#include "App/Application/Translations.h"
#include "App/Application/WallpaperApp.h"
#include "App/Command/CommandLine.h"
#include "App/Command/Console.h"
#include "App/Control/ControlCalls.h"
#include "App/Control/ControlService.h"
#include "App/Control/InstanceLock.h"
#include "Platform/Bus/SessionBus.h"
#include "Platform/Files/Paths.h"
#include "Platform/Pictures/PictureFile.h"
#include "Platform/System/GraphicsProcessor.h"

#include <QApplication>
#include <QNetworkProxyFactory>
#include <QQuickWindow>

#include <csignal>
#include <cstdlib>
#include <memory>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Program)
};

enum class Role { Application, Done };

/// Asks the application that runs for what the command line asks for.
Result<> handOver(ControlService &control, ControlService::Claim claim, const CommandLine &line)
{
    const bool isTaken = claim == ControlService::Claim::Taken;
    if (line.action && !isTaken) {
        return Failure{Tr::tr("the application runs already and can be told nothing without a session bus")};
    }
    if (!line.action && line.hidden) {
        return kDone;
    }
    const Result<> asked = line.action ? control.actOther(*line.action)
                           : isTaken   ? control.activateOther()
                                       : InstanceLock::activateOther();
    return asked ? kDone
                 : Failure{Tr::tr("the application that runs already does not do it: %1").arg(asked.failure().words)};
}

/// Becomes the application, or hands over to the one that runs.
Result<Role> takeRole(ControlService &control, InstanceLock &lock, const CommandLine &line)
{
    // The other one may be ending while it is asked, so the name may be free at the next look.
    constexpr int kTries = 3;
    Result<> handed;
    for (int attempt = 0; attempt < kTries; ++attempt) {
        const ControlService::Claim claim = control.claim();
        if (claim == ControlService::Claim::Owned || (claim == ControlService::Claim::NoBus && lock.take())) {
            return Role::Application;
        }
        handed = handOver(control, claim, line);
        if (handed) {
            return Role::Done;
        }
    }
    return handed.failure();
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qEnvironmentVariableIsSet("DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

/// Where nothing draws but the processor, Qt's own drawing is the better one: an OpenGL made of software takes a
/// hundred megabytes, and keeps them when the windows are closed.
void chooseDrawing()
{
    if (!hasGraphicsProcessor() && !qEnvironmentVariableIsSet("QT_QUICK_BACKEND") &&
        !qEnvironmentVariableIsSet("QSG_RHI_BACKEND")) {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        qputenv("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION", "none"); // The usual one loads OpenGL in any case.
    }
}

/// Widgets are for the tray of X11 (EmbeddedTray) only; elsewhere they would cost memory all day.
std::unique_ptr<QGuiApplication> makeApplication(int &argc, char **argv)
{
    const bool mayBeX11 = qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (mayBeX11) {
        return std::make_unique<QApplication>(argc, argv);
    }
    return std::make_unique<QGuiApplication>(argc, argv);
}

/// Where nothing can be shown, the application that runs elsewhere in the session can still be asked to show itself.
int runWithoutDisplay(CommandLine line)
{
    SessionBus bus;
    ControlService control(bus);
    const auto claim = bus.isConnected() ? ControlService::Claim::Taken : ControlService::Claim::NoBus;
    line.hidden = false; // There is nothing else that this start could do.
    if (handOver(control, claim, line)) {
        return kSucceeded;
    }
    return Console::fail(Failure{Tr::tr("there is no display; see quorvane --help for what needs none")}, line.json);
}

/// Where the display goes away, Qt ends the process by exit() from within the event loop. The destructors of static
/// objects would then wait for threads that are at work; files are always whole, so there is nothing to wait for.
void endAtOnceWithTheDisplay()
{
    if (QCoreApplication::instance() != nullptr) {
        ::_exit(kFailed);
    }
}

int runApplication(const CommandLine &line, const SceneUrls &urls)
{
    (void)std::atexit(endAtOnceWithTheDisplay);
    SessionBus bus;
    ControlService control(bus);
    InstanceLock lock;
    const Result<Role> role = takeRole(control, lock, line);
    if (!role) {
        return Console::fail(role.failure(), line.json);
    }
    if (*role == Role::Done) {
        return kSucceeded;
    }
    WallpaperApp app(bus, control, urls);
    QObject::connect(&lock, &InstanceLock::activated, &app, &WallpaperApp::openMain);
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    if (line.action) {
        QMetaObject::invokeMethod(
            &app, [&control, &line, token] { control.act(*line.action, token); }, Qt::QueuedConnection);
    } else if (!line.hidden) {
        QMetaObject::invokeMethod(
            &app, [&app, token] { app.openMain(token); }, Qt::QueuedConnection);
    }
    return QCoreApplication::exec();
}

bool isForWindows(const Result<CommandLine> &parsed)
{
    return parsed && parsed->verb == CommandLine::Verb::Start && hasDisplay() && !Paths::home().isEmpty();
}

int runWithoutWindows(const Result<CommandLine> &parsed, const QStringList &arguments)
{
    if (!parsed) {
        return Console::fail(parsed.failure(), arguments.contains(u"--json"_s), kWrongCommandLine);
    }
    const bool onlyTells = parsed->verb == CommandLine::Verb::Help || parsed->verb == CommandLine::Verb::Version;
    if (!onlyTells && Paths::home().isEmpty()) {
        const Failure homeless{Tr::tr("there is no home folder: HOME names none, and the account has none")};
        return Console::fail(homeless, parsed->json);
    }
    return parsed->verb == CommandLine::Verb::Start ? runWithoutDisplay(*parsed) : runCommand(*parsed);
}

} // namespace

int runProgram(int argc, char **argv, const SceneUrls &urls)
{
    QCoreApplication::setApplicationName(u"Quorvane"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(QUORVANE_VERSION));
    QStringList arguments;
    for (int index = 1; index < argc; ++index) {
        arguments.append(QString::fromLocal8Bit(argv[index]));
    }
    const QStringList languages = wantedLanguages();
    // Where the size of files is limited (ulimit -f), the write that goes beyond shall fail, and not the program. A
    // handler, because programs that we start would inherit that it is ignored.
    (void)std::signal(SIGXFSZ, [](int /*number*/) {});
    allowLargePictures();
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    if (!isForWindows(parseCommandLine(arguments))) {
        QCoreApplication application(argc, argv);
        installTranslations(application, languages);
        return runWithoutWindows(parseCommandLine(arguments), arguments);
    }
    chooseDrawing();
    const std::unique_ptr<QGuiApplication> application = makeApplication(argc, argv);
    installTranslations(*application, languages);
    QGuiApplication::setLayoutDirection(directionFor(languages));
    QGuiApplication::setDesktopFileName(Control::busName());
    return runApplication(*parseCommandLine(arguments), urls);
}

} // namespace quorvane
