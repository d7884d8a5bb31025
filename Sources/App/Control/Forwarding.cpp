#include "App/Control/Forwarding.h"

#include "App/Command/Console.h"
#include "App/Command/Reports.h"
#include "App/Control/ControlCalls.h"
#include "Platform/Bus/SessionBus.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>

#include <chrono>
#include <limits>

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
            return {name == Control::failedError() ? kFailed : kWrongCommandLine, {}, reply.error().message()};
        }
        return {kFailed, {}, Tr::tr("the application did not answer: %1").arg(reply.error().message())};
    }
    const QByteArray list = '[' + reply.value().toUtf8() + ']';
    const QJsonValue value = QJsonDocument::fromJson(list).array().first();
    return {value["isError"_L1].toBool() ? kFailed : kSucceeded, value, {}};
}

/// Until the application has left the bus, so that it can be started again.
void waitForTheEnd(const SessionBus &bus)
{
    const QDBusServiceWatcher watcher(Control::busName(), bus.connection(),
                                      QDBusServiceWatcher::WatchForUnregistration);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, &loop, &QEventLoop::quit);
    QTimer::singleShot(kQuitLimit, &loop, &QEventLoop::quit);
    if (isRunning(bus)) {
        loop.exec();
    }
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
    const QDBusPendingCall pending = bus.connection().asyncCall(
        messageTo(Control::interfaceName(), call->method, call->arguments), std::numeric_limits<int>::max());
    const QDBusPendingCallWatcher watcher(pending);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!pending.isFinished()) {
        loop.exec();
    }
    if (line.verb == CommandLine::Verb::Quit) {
        waitForTheEnd(bus);
    }
    return outcomeOf(pending);
}

} // namespace quorvane

#include "Forwarding.moc"
