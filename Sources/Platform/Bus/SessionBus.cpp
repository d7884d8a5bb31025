#include "Platform/Bus/SessionBus.h"

#include <QFileInfo>

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
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(kFirstWait);
    connect(&m_retry, &QTimer::timeout, this, &SessionBus::retry);
    open();
}

SessionBus::~SessionBus()
{
    QDBusConnection::disconnectFromBus(m_name);
}

QString SessionBus::address()
{
    const QString told = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!told.isEmpty()) {
        return told;
    }
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString socket = folder + u"/bus"_s;
    return !folder.isEmpty() && QFileInfo::exists(socket) ? u"unix:path="_s + socket : QString();
}

void SessionBus::open()
{
    // A name of its own each time: a connection that is being given up keeps its name for a moment.
    static int count = 0;
    m_name = u"session %1"_s.arg(++count);
    const QString where = address();
    if (where.isEmpty()) {
        return;
    }
    QDBusConnection bus = QDBusConnection::connectToBus(where, m_name);
    bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s, this,
                SLOT(lost()));
}

void SessionBus::lost()
{
    Q_EMIT disconnected();
    QDBusConnection::disconnectFromBus(m_name);
    m_retry.start(kFirstWait);
}

void SessionBus::retry()
{
    open();
    if (isConnected()) {
        Q_EMIT connected();
        return;
    }
    QDBusConnection::disconnectFromBus(m_name);
    m_retry.start(std::min(2 * m_retry.intervalAsDuration(), kLongestWait));
}

} // namespace quorvane
