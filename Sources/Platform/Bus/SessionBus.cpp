#include "Platform/Bus/SessionBus.h"

#include "Platform/Logging.h"

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// Doubled at each try, so that a session that has lost its bus for good costs next to nothing.
constexpr std::chrono::milliseconds kFirstWait{250};
constexpr std::chrono::milliseconds kLongestWait{60'000};

} // namespace

SessionBus::SessionBus(QObject *parent)
    : QObject(parent)
    , m_bus(MessageBus::sessionAddress())
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(kFirstWait);
    connect(&m_retry, &QTimer::timeout, this, &SessionBus::retry);
    listen();
}

void SessionBus::listen()
{
    m_bus.connection().connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                               u"Disconnected"_s, this, SLOT(lost()));
}

void SessionBus::lost()
{
    qCInfo(logBus) << "the session bus went away";
    Q_EMIT disconnected();
    m_retry.start(kFirstWait);
}

void SessionBus::retry()
{
    m_bus = MessageBus(MessageBus::sessionAddress());
    if (isConnected()) {
        listen();
        Q_EMIT connected();
        return;
    }
    m_retry.start(std::min(2 * m_retry.intervalAsDuration(), kLongestWait));
}

} // namespace quorvane
