#include "App/Control/Forwarding.h"

#include "App/Command/Console.h"
#include "App/Command/ProgressReport.h"
#include "App/Control/ControlCalls.h"
#include "Platform/Bus/Sandbox.h"
#include "Platform/Bus/SessionBus.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>

#include <cerrno>
#include <chrono>
#include <limits>

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// Longer than the application takes to leave what it is doing.
constexpr std::chrono::seconds kQuitLimit{30};

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Commands)
};

bool isRunning(const SessionBus &bus)
{
    return bus.isConnected() && bus.connection().interface()->isServiceRegistered(Control::busName()).value();
}

/// A call of our object that never starts the application.
QDBusMessage messageTo(const QString &interface, const QString &method, const QVariantList &arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(Control::busName(), Control::objectPath(), interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

/// Prints the application's status lines and progress as they change.
class Follower : public QObject
{
    Q_OBJECT

  public:
    explicit Follower(QDBusConnection bus)
    {
        bus.connect(Control::busName(), Control::objectPath(), u"org.freedesktop.DBus.Properties"_s,
                    u"PropertiesChanged"_s, this, SLOT(show(QString, QVariantMap)));
    }

  private Q_SLOTS:
    void show(const QString & /*interface*/, const QVariantMap &changed)
    {
        const QString status = changed.value(u"Status"_s).toString();
        if (!status.isEmpty()) {
            Console::printError(status);
        }
        const auto progress = qdbus_cast<QVariantMap>(changed.value(u"Progress"_s));
        if (!progress.isEmpty()) {
            Console::printProgress(Reports::progressLine(Reports::progressFrom(progress)));
        }
    }
};

CommandOutcome outcomeOf(const QDBusPendingReply<QString> &reply)
{
    if (reply.isError()) {
        const QString name = reply.error().name();
        if (name == Control::failedError() || name == Control::wrongArgumentsError()) {
            return {name == Control::failedError() ? kFailed : kWrongCommandLine, {}, Failure{reply.error().message()}};
        }
        return {kFailed, {}, Failure{Tr::tr("the application did not answer: %1").arg(reply.error().message())}};
    }
    const QByteArray list = '[' + reply.value().toUtf8() + ']';
    const QJsonValue value = QJsonDocument::fromJson(list).array().first();
    return {value["isError"_L1].toBool() ? kFailed : kSucceeded, value, {}};
}

/// What the application answers, however long that takes.
CommandOutcome answerTo(const SessionBus &bus, const Control::Call &call)
{
    const QDBusPendingCall pending = bus.connection().asyncCall(
        messageTo(Control::interfaceName(), call.method, call.arguments), std::numeric_limits<int>::max());
    const QDBusPendingCallWatcher watcher(pending);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!pending.isFinished()) {
        loop.exec();
    }
    return outcomeOf(pending);
}

/// The process of the application, looked for before it is asked to end: afterwards its name is gone, or another's.
class RunningProcess
{
  public:
    explicit RunningProcess(const SessionBus &bus)
    {
        // In a sandbox processes have other numbers than on the bus.
        const uint pid = isSandboxed() ? 0 : bus.connection().interface()->servicePid(Control::busName()).value();
        if (pid != 0) {
            m_descriptor = static_cast<int>(::syscall(SYS_pidfd_open, static_cast<pid_t>(pid), 0U));
        }
    }
    ~RunningProcess()
    {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }
    RunningProcess(const RunningProcess &) = delete;
    RunningProcess &operator=(const RunningProcess &) = delete;
    RunningProcess(RunningProcess &&) = delete;
    RunningProcess &operator=(RunningProcess &&) = delete;

    [[nodiscard]] bool isSeen() const { return m_descriptor >= 0; }

    /// Only of a process that is seen. False where it still runs at the deadline.
    [[nodiscard]] bool waitForEnd(QDeadlineTimer deadline) const
    {
        pollfd end{m_descriptor, POLLIN, 0};
        int answer = -1;
        do {
            answer = ::poll(&end, 1, static_cast<int>(deadline.remainingTime()));
        } while (answer < 0 && errno == EINTR);
        return answer > 0;
    }

  private:
    int m_descriptor = -1;
};

/// Until the application has left the bus, so that it can be started again.
void waitUntilItLeft(const SessionBus &bus, QDeadlineTimer deadline)
{
    const QDBusServiceWatcher watcher(Control::busName(), bus.connection(),
                                      QDBusServiceWatcher::WatchForUnregistration);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, &loop, &QEventLoop::quit);
    QTimer::singleShot(std::chrono::milliseconds(deadline.remainingTime()), &loop, &QEventLoop::quit);
    if (isRunning(bus)) {
        loop.exec();
    }
}

/// Asks the application to end, and waits until its process has.
CommandOutcome quit(const SessionBus &bus, const Control::Call &call)
{
    const RunningProcess process(bus);
    const QDeadlineTimer deadline(kQuitLimit);
    const CommandOutcome outcome = answerTo(bus, call);
    waitUntilItLeft(bus, deadline);
    if (process.isSeen() ? !process.waitForEnd(deadline) : isRunning(bus)) {
        return {kFailed, {}, Failure{Tr::tr("the application was asked to end and still runs")}};
    }
    return outcome;
}

} // namespace

std::optional<CommandOutcome> forward(const CommandLine &line)
{
    const std::optional<Control::Call> call = Control::callFor(line);
    if (!call) {
        return std::nullopt;
    }
    const SessionBus bus;
    if (!isRunning(bus)) {
        return std::nullopt;
    }
    const Follower follower(bus.connection());
    if (line.verb == CommandLine::Verb::Quit) {
        return quit(bus, *call);
    }
    CommandOutcome outcome = answerTo(bus, *call);
    if (line.verb == CommandLine::Verb::Status && !outcome.problem) {
        outcome.status = kSucceeded; // It tells of the last operation's failure, and is none itself.
    }
    return outcome;
}

} // namespace quorvane

#include "Forwarding.moc"
