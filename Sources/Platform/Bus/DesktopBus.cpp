// The process's common connection (QDBusConnection::sessionBus()) is not used: once its bus is gone it never comes
// back, and a program that starts with the session lives longer than one try.

#include "Platform/Bus/DesktopBus.h"

#include <QCoreApplication>
#include <QDBusError>
#include <QDBusMessage>

#include <algorithm>
#include <atomic>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopBus)
};

const QString kBus = u"org.freedesktop.DBus"_s;
const QString kBusPath = u"/org/freedesktop/DBus"_s;

QString newConnectionName()
{
    static std::atomic<int> counter = 0;
    return u"desktop-bus-%1"_s.arg(++counter);
}

} // namespace

DesktopBus::DesktopBus(const QString &address, QDeadlineTimer deadline)
    : m_connectionName(newConnectionName())
    , m_connection(address.isEmpty() ? QDBusConnection(m_connectionName)
                                     : QDBusConnection::connectToBus(address, m_connectionName))
    , m_deadline(deadline)
{
}

DesktopBus::~DesktopBus()
{
    QDBusConnection::disconnectFromBus(m_connectionName);
}

QStringList DesktopBus::names()
{
    const auto answer = call(kBus, kBusPath, kBus, u"ListNames"_s);
    return answer ? answer->value(0).toStringList() : QStringList();
}

std::optional<QString> DesktopBus::failureToFind(const QStringList &painters, const QString &title)
{
    m_error.clear();
    const QStringList present = names();
    if (!m_error.isEmpty()) {
        return m_error;
    }
    const bool isThere = std::any_of(painters.begin(), painters.end(),
                                     [&](const QString &painter) { return present.contains(painter); });
    return isThere ? std::nullopt
                   : std::optional(Tr::tr("%1 does not draw the background now: %2 is not on the session bus")
                                       .arg(title, painters.join(Tr::tr(" or "))));
}

std::optional<QVariantList> DesktopBus::call(const QString &name, const QString &path, const QString &interface,
                                             const QString &method, const QVariantList &arguments)
{
    if (!m_connection.isConnected()) {
        m_error = Tr::tr("The session bus cannot be reached");
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
                  ? Tr::tr("%1 does not answer").arg(name)
                  : error.message();
    return std::nullopt;
}

} // namespace quorvane
