#include "App/Control/ControlService.h"

#include "App/Command/CommandRunner.h"
#include "App/Command/ProgressReport.h"
#include "App/Command/Services.h"
#include "App/Control/ControlCalls.h"
#include "Platform/Bus/SessionBus.h"
#include "Platform/Logging.h"
#include "Platform/PrintableText.h"

#include "applicationadaptor.h"
#include "quorvane1adaptor.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QJsonArray>
#include <QJsonDocument>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// A busy machine may take its time; a frozen application is given up.
constexpr std::chrono::seconds kActivationLimit{20};

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
    : QObject(parent)
    , m_bus(bus)
{
    new ApplicationAdaptor(this); // NOLINT(cppcoreguidelines-owning-memory): they are ours as children.
    new Quorvane1Adaptor(this);   // NOLINT(cppcoreguidelines-owning-memory)
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
    bus.registerObject(Control::objectPath(), this, QDBusConnection::ExportAdaptors);
    const bool isOurs =
        bus.interface()->registerService(Control::busName(), QDBusConnectionInterface::DontQueueService).value() ==
        QDBusConnectionInterface::ServiceRegistered;
    qCInfo(logBus).noquote() << Control::busName() << (isOurs ? "is ours" : "is another process's");
    return isOurs;
}

Result<> ControlService::activateOther()
{
    return askOther(u"Activate"_s, {});
}

Result<> ControlService::actOther(const QString &action)
{
    return askOther(u"ActivateAction"_s, {action, QVariantList()});
}

Result<> ControlService::askOther(const QString &method, QVariantList arguments)
{
    QVariantMap platformData;
    for (const auto &[variable, key] :
         {std::pair("XDG_ACTIVATION_TOKEN", kActivationToken), std::pair("DESKTOP_STARTUP_ID", kStartupId)}) {
        if (qEnvironmentVariableIsSet(variable)) {
            platformData.insert(key, qEnvironmentVariable(variable));
        }
    }
    const Result<QVariantList> answer = m_bus.bus()
                                            .until(QDeadlineTimer(kActivationLimit))
                                            .call(Control::busName(), Control::objectPath(),
                                                  Control::applicationInterface(), method, arguments << platformData);
    return answer ? kDone : answer.failure();
}

void ControlService::serve(Services &services)
{
    m_services = &services;
    const WallpaperManager *manager = &services.manager;
    const auto announceAt = [this, manager](auto signal, const QString &property) {
        connect(manager, signal, this, [this, property] { announce({{property, properties().value(property)}}); });
    };
    announceAt(&WallpaperManager::statusChanged, u"Status"_s);
    announceAt(&WallpaperManager::isErrorChanged, u"IsError"_s);
    announceAt(&WallpaperManager::isLoadingChanged, u"IsLoading"_s);
    announceAt(&WallpaperManager::progressChanged, u"Progress"_s);
    announceAt(&WallpaperManager::autoEnabledChanged, u"AutoEnabled"_s);
    announceAt(&WallpaperManager::nextFireDateChanged, u"NextFireDate"_s);
    announceAt(&WallpaperManager::currentWallpaperURLChanged, u"CurrentWallpaper"_s);
    announce(properties()); // Whoever read them before has seen nothing yet.
    // From within the event loop, because the answer may be to end it.
    const auto begin = [this] {
        m_isServing = true;
        for (const QDBusMessage &call : std::exchange(m_early, {})) {
            answer(call);
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
    return {{u"Status"_s, withVisibleNulls(manager.status())},
            {u"IsError"_s, manager.isError()},
            {u"IsLoading"_s, manager.isLoading()},
            {u"Progress"_s, progress ? Reports::progressMap(*progress) : QVariantMap()},
            {u"AutoEnabled"_s, manager.autoEnabled()},
            {u"NextFireDate"_s, manager.nextFireDate().toString(Qt::ISODate)},
            {u"CurrentWallpaper"_s, manager.currentWallpaperURL()}};
}

void ControlService::announce(const QVariantMap &changed)
{
    for (auto property = changed.begin(); property != changed.end(); ++property) {
        setProperty(property.key().toLatin1().constData(), *property); // The adaptor reads them from here.
    }
    if (m_bus.isConnected()) {
        QDBusMessage signal = QDBusMessage::createSignal(Control::objectPath(), u"org.freedesktop.DBus.Properties"_s,
                                                         u"PropertiesChanged"_s);
        signal.setArguments({Control::interfaceName(), changed, QStringList()});
        m_bus.connection().send(signal);
    }
}

QString ControlService::take()
{
    setDelayedReply(true);
    if (m_isServing) {
        answer(message());
    } else {
        m_early.append(message()); // The name is ours before the manager is made, which may run the event loop.
    }
    return {};
}

void ControlService::answer(const QDBusMessage &call)
{
    const bool isStart = call.member().startsWith("Activate"_L1) || call.member() == "Open"_L1;
    isStart ? answerApplication(call) : answerOperation(call);
}

void ControlService::answerApplication(const QDBusMessage &call)
{
    const QVariantList arguments = call.arguments();
    const QString token = tokenFrom(arguments.last());
    if (call.member() != "ActivateAction"_L1) {
        m_bus.connection().send(call.createReply());
        Q_EMIT activated(token);
        return;
    }
    const QString action = arguments.first().toString();
    if (!CommandLine::isDesktopAction(action)) {
        m_bus.connection().send(call.createErrorReply(QDBusError::InvalidArgs, call.member() + ' '_L1 + action));
        return;
    }
    // It may end the program, so the answer goes out before it.
    m_bus.connection().send(call.createReply());
    act(action, token);
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

void ControlService::answerOperation(const QDBusMessage &call)
{
    const auto line = Control::lineFrom({call.member(), call.arguments()});
    if (!line) {
        m_bus.connection().send(call.createErrorReply(Control::wrongArgumentsError(), call.member()));
    } else if (line->verb == CommandLine::Verb::Quit) {
        m_bus.connection().send(call.createReply(u"null"_s));
        Q_EMIT quitAsked();
    } else {
        run(*line, call);
    }
}

void ControlService::run(const CommandLine &line, const QDBusMessage &call)
{
    const auto ended = [this, call](const CommandOutcome &outcome) {
        m_bus.connection().send(replyWith(call, outcome));
        Q_EMIT changed();
    };
    CommandRunner::start(*m_services, line, ended);
}

} // namespace quorvane
