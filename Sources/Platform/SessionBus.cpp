// The process's common connection (QDBusConnection::sessionBus()) is not used: once its bus is gone it never comes
// back, and a program that starts with the session lives longer than one try.

#include "Platform/SessionBus.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QFile>

#include <algorithm>
#include <atomic>

namespace quorvane {

namespace {

const QString kBus = QStringLiteral("org.freedesktop.DBus");
const QString kBusPath = QStringLiteral("/org/freedesktop/DBus");

QString newConnectionName()
{
    static std::atomic<int> counter = 0;
    return QStringLiteral("session-bus-%1").arg(++counter);
}

} // namespace

QString SessionBus::addressOfThisSession()
{
    const QString given = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (!given.isEmpty()) {
        return given;
    }
    const QString usual = QFile::decodeName(qgetenv("XDG_RUNTIME_DIR")) + QStringLiteral("/bus");
    return qEnvironmentVariableIsSet("XDG_RUNTIME_DIR") && QFile::exists(usual) ? QStringLiteral("unix:path=") + usual
                                                                                : QString();
}

SessionBus::SessionBus(const QString &address, QDeadlineTimer deadline)
    : m_connectionName(newConnectionName())
    , m_connection(address.isEmpty() ? QDBusConnection(m_connectionName)
                                     : QDBusConnection::connectToBus(address, m_connectionName))
    , m_deadline(deadline)
{
}

SessionBus::~SessionBus()
{
    QDBusConnection::disconnectFromBus(m_connectionName);
}

QStringList SessionBus::names()
{
    const auto answer = call(kBus, kBusPath, kBus, QStringLiteral("ListNames"));
    return answer ? answer->value(0).toStringList() : QStringList();
}

std::optional<QString> SessionBus::failureToFind(const QStringList &painters, const QString &title)
{
    m_error.clear();
    const QStringList present = names();
    if (!m_error.isEmpty()) {
        return m_error;
    }
    const bool isThere = std::any_of(painters.begin(), painters.end(),
                                     [&](const QString &painter) { return present.contains(painter); });
    return isThere ? std::nullopt
                   : std::optional(QStringLiteral("%1 does not draw the background now: %2 is not on the session bus")
                                       .arg(title, painters.join(QStringLiteral(" or "))));
}

std::optional<QVariantList> SessionBus::call(const QString &name, const QString &path, const QString &interface,
                                             const QString &method, const QVariantList &arguments)
{
    if (!m_connection.isConnected()) {
        m_error = QStringLiteral("The session bus cannot be reached");
        return std::nullopt;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(name, path, interface, method);
    question.setArguments(arguments);
    question.setAutoStartService(false);
    const int limit = std::max(1, static_cast<int>(m_deadline.remainingTime()));
    const QDBusMessage reply = m_connection.call(question, QDBus::Block, limit);
    if (reply.type() == QDBusMessage::ReplyMessage) {
        return reply.arguments();
    }
    const QDBusError error(reply);
    m_error = error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout
                  ? QStringLiteral("%1 does not answer").arg(name)
                  : error.message();
    return std::nullopt;
}

} // namespace quorvane
