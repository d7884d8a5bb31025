#include "Platform/Bus/PortalRequest.h"

#include <QCoreApplication>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QTimer>

#include <atomic>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(PortalRequest)
};

const QString kPortal = u"org.freedesktop.portal.Desktop"_s;
const QString kRequest = u"org.freedesktop.portal.Request"_s;

/// No user takes longer who is there at all. Some portals never answer when they cannot ask.
constexpr std::chrono::minutes kAskingLimit{10};

QString nextToken()
{
    static std::atomic<int> count = 0;
    return u"quorvane%1"_s.arg(++count);
}

} // namespace

PortalRequest::PortalRequest(BusClient &client)
    : m_client(client)
    , m_token(nextToken())
{
    // Listening begins before the call, so that no answer can be missed; the path is known beforehand.
    QString sender = client.bus().baseService().mid(1);
    sender.replace('.'_L1, '_'_L1);
    m_path = u"/org/freedesktop/portal/desktop/request/%1/%2"_s.arg(sender, m_token);
    client.bus().connect(kPortal, m_path, kRequest, u"Response"_s, this, SLOT(answered(uint, QVariantMap)));
}

PortalRequest::Outcome PortalRequest::ask(const QDBusMessage &question, const QVariantList &arguments,
                                          std::chrono::milliseconds limit, const std::function<void()> &asking,
                                          const std::stop_token &stop)
{
    const QDeadlineTimer deadline(limit);
    const BusClient::Answer answer = m_client.call(question, arguments, deadline);
    if (!answer.error.isEmpty()) {
        return {std::nullopt, answer.error};
    }
    QEventLoop loop;
    connect(this, &PortalRequest::ended, &loop, &QEventLoop::quit);
    const QDBusServiceWatcher watcher(kPortal, m_client.bus(), QDBusServiceWatcher::WatchForUnregistration);
    connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        m_outcome.error = Tr::tr("The desktop's portal ended before it answered");
        Q_EMIT ended();
    });
    connect(
        this, &PortalRequest::stopped, this,
        [this] {
            m_outcome.error = Tr::tr("Nobody waits for the desktop's question any more");
            Q_EMIT ended();
        },
        Qt::QueuedConnection);
    const std::stop_callback stopping(stop, [this] { Q_EMIT stopped(); });
    QTimer patience;
    patience.setSingleShot(true);
    connect(&patience, &QTimer::timeout, this, asking);
    patience.start(std::chrono::milliseconds(std::max<qint64>(1, deadline.remainingTime())));
    QTimer end;
    connect(&end, &QTimer::timeout, this, [this] {
        m_outcome.error = Tr::tr("The desktop's question was not answered");
        Q_EMIT ended();
    });
    end.start(kAskingLimit);
    if (!m_outcome.response && m_outcome.error.isEmpty()) {
        loop.exec();
    }
    if (!m_outcome.response) {
        // Else the picture could still be set by an answer that nobody waits for.
        m_client.bus().send(QDBusMessage::createMethodCall(kPortal, m_path, kRequest, u"Close"_s));
    }
    return m_outcome;
}

void PortalRequest::answered(uint response, const QVariantMap & /*results*/)
{
    m_outcome.response = response;
    Q_EMIT ended();
}

} // namespace quorvane
