#include "Platform/Bus/BusClient.h"

#include <QCoreApplication>
#include <QDBusError>

#include <algorithm>
#include <atomic>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(BusClient)
};

/// Each connection has a name of its own, because two threads may have one at the same time.
QString nextName()
{
    static std::atomic<int> count = 0;
    return u"bus client %1"_s.arg(++count);
}

} // namespace

BusClient::BusClient(const QString &address)
    : m_name(nextName())
    , m_bus(address.isEmpty() ? QDBusConnection(m_name) : QDBusConnection::connectToBus(address, m_name))
{
}

BusClient::~BusClient()
{
    QDBusConnection::disconnectFromBus(m_name);
}

bool BusClient::isOwned(const QString &name, QDeadlineTimer deadline)
{
    const QString bus = u"org.freedesktop.DBus"_s;
    const Answer answer =
        call(QDBusMessage::createMethodCall(bus, u"/org/freedesktop/DBus"_s, bus, u"NameHasOwner"_s), {name}, deadline);
    return answer.arguments.value(0).toBool();
}

BusClient::Answer BusClient::call(QDBusMessage question, const QVariantList &arguments, QDeadlineTimer deadline)
{
    if (!m_bus.isConnected()) {
        return {{}, Tr::tr("The session bus cannot be reached")};
    }
    question.setArguments(arguments);
    // No time left would mean Qt's own limit, which is longer.
    const int milliseconds = static_cast<int>(std::max<qint64>(1, deadline.remainingTime()));
    const QDBusMessage reply = m_bus.call(question, QDBus::Block, milliseconds);
    if (reply.type() == QDBusMessage::ReplyMessage) {
        return {reply.arguments(), {}};
    }
    const QDBusError error(reply);
    const bool isSilence = error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout;
    return {{}, isSilence || error.message().isEmpty() ? Tr::tr("There is no answer") : error.message()};
}

} // namespace quorvane
