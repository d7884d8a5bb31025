#include "Platform/Bus/PortalRequest.h"

#include "Platform/Logging.h"

#include <QCoreApplication>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QTimer>

#include <atomic>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(PortalRequest)
};

const QString kPortal = u"org.freedesktop.portal.Desktop"_s;
const QString kObject = u"/org/freedesktop/portal/desktop"_s;
const QString kRequest = u"org.freedesktop.portal.Request"_s;

/// No user takes longer who is there at all. Some portals never answer when they cannot ask.
constexpr std::chrono::minutes kAskingLimit{10};

QString nextToken()
{
    static std::atomic<int> count = 0;
    return u"quorvane%1"_s.arg(++count);
}

} // namespace

PortalRequest::PortalRequest(MessageBus bus)
    : m_bus(std::move(bus))
    , m_token(nextToken())
{
    // Listening begins before the call, so that no answer can be missed; the path follows from who asks and the token.
    QString sender = m_bus.connection().baseService().mid(1);
    sender.replace('.'_L1, '_'_L1);
    m_path = u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(sender, m_token);
    m_bus.connection().connect(kPortal, m_path, kRequest, u"Response"_s, this, SLOT(answered(uint, QVariantMap)));
}

Result<PortalRequest::Answer> PortalRequest::ask(const QString &interface, const QString &method,
                                                 const QVariantList &arguments, const Wait &wait)
{
    if (!m_bus.isConnected()) {
        return MessageBus::unreachable(); // A call would never end.
    }
    QDBusMessage question = QDBusMessage::createMethodCall(kPortal, kObject, interface, method);
    question.setArguments(arguments);
    const QDBusPendingCallWatcher call(m_bus.connection().asyncCall(question));
    connect(&call, &QDBusPendingCallWatcher::finished, this, [this, &call] {
        if (call.isError()) {
            const QString words = call.error().message();
            end(Failure{words.isEmpty() ? Tr::tr("There is no answer") : words});
        }
    });
    const QDBusServiceWatcher watcher(kPortal, m_bus.connection(), QDBusServiceWatcher::WatchForUnregistration);
    connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { end(Failure{Tr::tr("The desktop's portal ended before it answered")}); });
    connect(
        this, &PortalRequest::stopped, this,
        [this] { end(Failure{Tr::tr("Nobody waits for the desktop's question any more")}); }, Qt::QueuedConnection);
    const std::stop_callback stopping(wait.stop, [this] { Q_EMIT stopped(); });
    QTimer patience;
    patience.setSingleShot(true);
    connect(&patience, &QTimer::timeout, this,
            [this, &call, &wait] { call.isFinished() ? wait.asking() : end(Failure{Tr::tr("There is no answer")}); });
    patience.start(wait.patience);
    QTimer limit;
    connect(&limit, &QTimer::timeout, this,
            [this] { end(Failure{Tr::tr("The desktop's question was not answered")}); });
    limit.start(kAskingLimit);

    QEventLoop loop;
    connect(this, &PortalRequest::ended, &loop, &QEventLoop::quit);
    if (!m_outcome) {
        loop.exec();
    }
    if (!*m_outcome && call.isFinished() && !call.isError()) {
        // Else what was asked for could still be done by an answer that nobody waits for.
        m_bus.connection().send(QDBusMessage::createMethodCall(kPortal, m_path, kRequest, u"Close"_s));
    }
    qCInfo(logBus).noquote() << interface << method
                             << (*m_outcome ? u"was answered with %1"_s.arg(uint((*m_outcome)->response))
                                            : u"failed: %1"_s.arg(m_outcome->failure().words));
    return *m_outcome;
}

void PortalRequest::answered(uint response, const QVariantMap &results)
{
    end(Answer{static_cast<Answer::Response>(response), results});
}

void PortalRequest::end(const Result<Answer> &outcome)
{
    if (!m_outcome) {
        m_outcome = outcome;
        Q_EMIT ended();
    }
}

bool hasPortal(const MessageBus &bus, const QString &interface)
{
    return bool(
        bus.callOrStart(kPortal, kObject, u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {interface, u"version"_s}));
}

} // namespace quorvane
