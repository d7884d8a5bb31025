#include "App/Control/ControlService.h"

#include "App/Command/CommandRunner.h"
#include "App/Command/Reports.h"
#include "App/Command/Services.h"
#include "App/Control/ControlCalls.h"
#include "Platform/Bus/PropertiesCall.h"
#include "Platform/Bus/SessionBus.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QJsonArray>
#include <QJsonDocument>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// A busy machine may take its time; a frozen application is given up.
constexpr int kActivationLimitMilliseconds = 20'000;

const QString kActivationToken = u"activation-token"_s;
const QString kStartupId = u"desktop-startup-id"_s;

QString tokenFrom(const QVariant &platformData)
{
    const auto data = qdbus_cast<QVariantMap>(platformData);
    const QString token = data.value(kActivationToken).toString();
    return token.isEmpty() ? data.value(kStartupId).toString() : token;
}

QDBusMessage replyWith(const QDBusMessage &call, const CommandOutcome &outcome)
{
    if (outcome.problem) {
        const bool isWrong = outcome.status == kWrongCommandLine;
        return call.createErrorReply(isWrong ? Control::wrongArgumentsError() : Control::failedError(),
                                     outcome.problem->words);
    }
    const QByteArray list = QJsonDocument(QJsonArray{outcome.value}).toJson(QJsonDocument::Compact);
    return call.createReply(QString::fromUtf8(list.sliced(1, list.size() - 2)));
}

} // namespace

ControlService::ControlService(SessionBus &bus, QObject *parent)
    : QDBusVirtualObject(parent)
    , m_bus(bus)
{
}

ControlService::Claim ControlService::claim()
{
    if (!m_bus.isConnected()) {
        return Claim::NoBus;
    }
    return exportAndRequest() ? Claim::Owned : Claim::Taken;
}

bool ControlService::exportAndRequest()
{
    // The object first: who sees the name may call at once.
    QDBusConnection bus = m_bus.connection();
    bus.registerVirtualObject(Control::objectPath(), this);
    return bus.interface()->registerService(Control::busName(), QDBusConnectionInterface::DontQueueService).value() ==
           QDBusConnectionInterface::ServiceRegistered;
}

bool ControlService::activateOther()
{
    return askOther(u"Activate"_s, {});
}

bool ControlService::actOther(const QString &action)
{
    return askOther(u"ActivateAction"_s, {action, QVariantList()});
}

bool ControlService::askOther(const QString &method, QVariantList arguments)
{
    QVariantMap platformData;
    for (const auto &[variable, key] :
         {std::pair("XDG_ACTIVATION_TOKEN", kActivationToken), std::pair("DESKTOP_STARTUP_ID", kStartupId)}) {
        if (qEnvironmentVariableIsSet(variable)) {
            platformData.insert(key, qEnvironmentVariable(variable));
        }
    }
    QDBusMessage call = QDBusMessage::createMethodCall(Control::busName(), Control::objectPath(),
                                                       Control::applicationInterface(), method);
    call.setArguments(arguments << platformData);
    call.setAutoStartService(false);
    return m_bus.connection().call(call, QDBus::Block, kActivationLimitMilliseconds).type() ==
           QDBusMessage::ReplyMessage;
}

void ControlService::serve(Services &services)
{
    m_services = &services;
    const WallpaperManager *manager = &services.manager;
    const auto announceAt = [this, manager](auto signal, const QString &property) {
        connect(manager, signal, this, [this, property] { announce(property); });
    };
    announceAt(&WallpaperManager::statusChanged, u"Status"_s);
    announceAt(&WallpaperManager::isErrorChanged, u"IsError"_s);
    announceAt(&WallpaperManager::isLoadingChanged, u"IsLoading"_s);
    announceAt(&WallpaperManager::progressChanged, u"Progress"_s);
    announceAt(&WallpaperManager::autoEnabledChanged, u"AutoEnabled"_s);
    announceAt(&WallpaperManager::nextFireDateChanged, u"NextFireDate"_s);
    announceAt(&WallpaperManager::currentWallpaperURLChanged, u"CurrentWallpaper"_s);
    // From within the event loop, because the answer may be to end it.
    const auto begin = [this] {
        m_isServing = true;
        for (const QDBusMessage &message : std::exchange(m_early, {})) {
            handleMessage(message, m_bus.connection());
        }
    };
    QMetaObject::invokeMethod(this, begin, Qt::QueuedConnection);
    // After a restart of the bus the name is free again.
    connect(&m_bus, &SessionBus::connected, this, [this] {
        if (!exportAndRequest()) {
            qWarning("Another process has taken the name %s", qUtf8Printable(Control::busName()));
        }
    });
}

void ControlService::release()
{
    if (!m_bus.isConnected()) {
        return;
    }
    m_bus.connection().unregisterObject(Control::objectPath());
    // Without waiting for the answer: at the end of a session the bus may be ending too.
    QDBusMessage release = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                          u"org.freedesktop.DBus"_s, u"ReleaseName"_s);
    release.setArguments({Control::busName()});
    m_bus.connection().send(release);
}

QVariantMap ControlService::properties() const
{
    const WallpaperManager &manager = m_services->manager;
    const std::optional<UpscaleProgress> progress = manager.progress();
    return {{u"Status"_s, manager.status()},
            {u"IsError"_s, manager.isError()},
            {u"IsLoading"_s, manager.isLoading()},
            {u"Progress"_s, progress ? Reports::progressMap(*progress) : QVariantMap()},
            {u"AutoEnabled"_s, manager.autoEnabled()},
            {u"NextFireDate"_s, manager.nextFireDate().toString(Qt::ISODate)},
            {u"CurrentWallpaper"_s, manager.currentWallpaperURL()}};
}

void ControlService::announce(const QString &property)
{
    if (m_bus.isConnected()) {
        m_bus.connection().send(propertiesChanged(Control::objectPath(), Control::interfaceName(),
                                                  {{property, properties().value(property)}}));
    }
}

QString ControlService::introspect(const QString & /*path*/) const
{
    return Control::introspectionXml();
}

bool ControlService::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (!m_isServing) {
        // The name is ours before the manager is made, which may run the event loop.
        message.setDelayedReply(true);
        m_early.append(message);
        return true;
    }
    if (const auto reply = propertiesReply(message, Control::interfaceName(), properties())) {
        return connection.send(*reply);
    }
    if (message.interface() == Control::applicationInterface()) {
        answerApplication(message, connection);
        return true;
    }
    if (message.interface() == Control::interfaceName() || message.interface().isEmpty()) {
        answerOperation(message, connection);
        return true;
    }
    return false;
}

void ControlService::answerApplication(const QDBusMessage &message, const QDBusConnection &connection)
{
    const QVariantList arguments = message.arguments();
    const QString signature = message.signature();
    if (message.member() == "Activate"_L1 && signature == "a{sv}"_L1) {
        connection.send(message.createReply());
        Q_EMIT activated(tokenFrom(arguments.first()));
        return;
    }
    if (message.member() == "Open"_L1 && signature == "asa{sv}"_L1) {
        connection.send(message.createReply());
        Q_EMIT activated(tokenFrom(arguments.at(1)));
        return;
    }
    const QString action = arguments.value(0).toString();
    const bool isAction = message.member() == "ActivateAction"_L1 && signature == "sava{sv}"_L1;
    // An action may end the program, so the answer goes out before it.
    const QDBusMessage answer =
        isAction && CommandLine::isDesktopAction(action)
            ? message.createReply()
            : message.createErrorReply(QDBusError::InvalidArgs, message.member() + ' '_L1 + action);
    connection.send(answer);
    if (answer.type() == QDBusMessage::ReplyMessage) {
        act(action, tokenFrom(arguments.at(2)));
    }
}

void ControlService::act(const QString &action, const QString &token)
{
    WallpaperManager &manager = m_services->manager;
    if (action == "generate"_L1) {
        manager.generateAndSet();
    } else if (action == "toggle-auto"_L1) {
        manager.setAutoEnabled(!manager.autoEnabled());
    } else if (action == "settings"_L1) {
        Q_EMIT settingsAsked(token);
    } else if (action == "quit"_L1) {
        Q_EMIT quitAsked();
    }
}

void ControlService::answerOperation(const QDBusMessage &message, const QDBusConnection &connection)
{
    const auto line = Control::lineFrom({message.member(), message.arguments()});
    if (!line) {
        connection.send(message.createErrorReply(Control::wrongArgumentsError(), message.member()));
    } else if (line->verb == CommandLine::Verb::Quit) {
        quit(message, connection);
    } else {
        run(*line, message, connection);
    }
}

void ControlService::run(const CommandLine &line, const QDBusMessage &message, const QDBusConnection &connection)
{
    const auto ended = [this, message, connection](const CommandOutcome &outcome) {
        connection.send(replyWith(message, outcome));
        Q_EMIT changed();
    };
    CommandRunner::start(*m_services, line, ended);
}

void ControlService::quit(const QDBusMessage &message, const QDBusConnection &connection)
{
    connection.send(message.createReply(message.interface() == Control::interfaceName() ? QVariantList{u"null"_s}
                                                                                        : QVariantList()));
    Q_EMIT quitAsked();
}

} // namespace quorvane
