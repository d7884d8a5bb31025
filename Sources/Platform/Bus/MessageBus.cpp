// One connection for the whole process, because each costs a socket, a greeting and a name on the bus. Qt's common one
// (QDBusConnection::sessionBus()) is not used: once its bus is gone it never comes back, and a program that starts with
// the session lives longer than one try. Where libraries talk for themselves (GLib's settings, QtKeychain), they have
// connections of their own, which we cannot lend them.

#include "Platform/Bus/MessageBus.h"

#include "Platform/Logging.h"

#include <QCoreApplication>
#include <QDBusError>
#include <QFileInfo>

#include <algorithm>
#include <map>
#include <mutex>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(MessageBus)
};

const QString kBus = u"org.freedesktop.DBus"_s;
const QString kBusPath = u"/org/freedesktop/DBus"_s;

/// The address of a socket that may be there.
QString addressOf(const QString &socket)
{
    return QFileInfo::exists(socket) ? u"unix:path="_s + socket : QString();
}

QDBusMessage questionTo(const QString &name, const QString &path, const QString &interface, const QString &method,
                        const QVariantList &arguments)
{
    QDBusMessage question = QDBusMessage::createMethodCall(name, path, interface, method);
    question.setArguments(arguments);
    return question;
}

} // namespace

/// What Qt calls a connection, for as long as somebody has it.
struct MessageBus::Link
{
    Link(const QString &address, const QString &linkName)
        : name(linkName)
        , connection(address.isEmpty() ? QDBusConnection(linkName) : QDBusConnection::connectToBus(address, linkName))
    {
    }
    ~Link() { QDBusConnection::disconnectFromBus(name); }
    Link(const Link &) = delete;
    Link &operator=(const Link &) = delete;
    Link(Link &&) = delete;
    Link &operator=(Link &&) = delete;

    QString name;
    QDBusConnection connection;
};

std::shared_ptr<const MessageBus::Link> MessageBus::linkTo(const QString &address)
{
    // Beside Qt's own table of connections, which is the process's as well, but does not count who uses them.
    struct Table
    {
        std::mutex mutex;
        std::map<QString, std::weak_ptr<const Link>> links;
        int opened = 0;
    };
    // Never gone: a thread that outlived its time limit may still come here at the end.
    static auto &table = *new Table; // NOLINT(cppcoreguidelines-owning-memory)
    const std::lock_guard lock(table.mutex);
    std::shared_ptr<const Link> link = table.links[address].lock();
    if (!link || !link->connection.isConnected()) {
        // A name of its own each time: a connection that is being given up keeps its name for a moment.
        link = std::make_shared<const Link>(address, u"quorvane %1"_s.arg(++table.opened));
        table.links[address] = link;
        qCInfo(logBus).noquote() << (link->connection.isConnected() ? "connected to" : "no connection to")
                                 << (address.isEmpty() ? u"a bus without an address"_s : address);
    }
    return link;
}

MessageBus::MessageBus(const QString &address, QDeadlineTimer deadline)
    : m_link(linkTo(address))
    , m_deadline(deadline)
{
}

MessageBus MessageBus::until(QDeadlineTimer deadline) const
{
    MessageBus other = *this;
    other.m_deadline = deadline;
    return other;
}

QString MessageBus::sessionAddress()
{
    const QString told = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return told.isEmpty() && !folder.isEmpty() ? addressOf(folder + u"/bus"_s) : told;
}

QString MessageBus::systemAddress()
{
    const QString told = qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS");
    return told.isEmpty() ? addressOf(u"/run/dbus/system_bus_socket"_s) : told;
}

bool MessageBus::isConnected() const
{
    return m_link->connection.isConnected();
}

QDBusConnection MessageBus::connection() const
{
    return m_link->connection;
}

Result<QVariantList> MessageBus::call(const QString &name, const QString &path, const QString &interface,
                                      const QString &method, const QVariantList &arguments) const
{
    QDBusMessage question = questionTo(name, path, interface, method, arguments);
    question.setAutoStartService(false);
    return ask(question);
}

Result<QVariantList> MessageBus::callOrStart(const QString &name, const QString &path, const QString &interface,
                                             const QString &method, const QVariantList &arguments) const
{
    return ask(questionTo(name, path, interface, method, arguments));
}

Result<QVariantList> MessageBus::ask(const QDBusMessage &question) const
{
    if (!isConnected()) {
        return unreachable();
    }
    // For Qt, -1 is its own limit, and so is no time left.
    const qint64 left = m_deadline.isForever() ? -1 : std::max<qint64>(1, m_deadline.remainingTime());
    const QDBusMessage reply = connection().call(question, QDBus::Block, static_cast<int>(left));
    if (reply.type() == QDBusMessage::ReplyMessage) {
        return reply.arguments();
    }
    const QDBusError error(reply);
    const bool isSilent = error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout;
    return Failure{isSilent || error.message().isEmpty() ? Tr::tr("%1 does not answer").arg(question.service())
                                                         : error.message()};
}

Failure MessageBus::unreachable()
{
    return {Tr::tr("The session bus cannot be reached")};
}

Result<QStringList> MessageBus::names() const
{
    const Result<QVariantList> answer = call(kBus, kBusPath, kBus, u"ListNames"_s);
    return answer ? Result(answer->value(0).toStringList()) : answer.failure();
}

bool MessageBus::isOwned(const QString &name) const
{
    const Result<QVariantList> answer = call(kBus, kBusPath, kBus, u"NameHasOwner"_s, {name});
    return answer && answer->value(0).toBool();
}

} // namespace quorvane
