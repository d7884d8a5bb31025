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

Result<QStringList> DesktopBus::names()
{
    const Result<QVariantList> answer = call(kBus, kBusPath, kBus, u"ListNames"_s);
    return answer ? Result(answer->value(0).toStringList()) : answer.failure();
}

Result<> DesktopBus::findOneOf(const QStringList &painters, const QString &title)
{
    const Result<QStringList> present = names();
    if (!present) {
        return present.failure();
    }
    const bool isThere = std::any_of(painters.begin(), painters.end(),
                                     [&](const QString &painter) { return present->contains(painter); });
    return isThere ? kDone
                   : Failure{Tr::tr("%1 does not draw the background now: %2 is not on the session bus")
                                 .arg(title, painters.join(Tr::tr(" or ")))};
}

Result<QVariantList> DesktopBus::call(const QString &name, const QString &path, const QString &interface,
                                      const QString &method, const QVariantList &arguments)
{
    if (!m_connection.isConnected()) {
        return Failure{Tr::tr("The session bus cannot be reached")};
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
    const bool isSilent = error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout;
    return Failure{isSilent || error.message().isEmpty() ? Tr::tr("%1 does not answer").arg(name) : error.message()};
}

} // namespace quorvane
