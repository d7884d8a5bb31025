#include "App/Control/InstanceLock.h"

#include <QLocalSocket>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kLimitMilliseconds = 5000;
constexpr qint64 kLongestToken = 4096;

QString pathOf(const char *name)
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + '/'_L1 + QLatin1String(name);
}

} // namespace

InstanceLock::InstanceLock(QObject *parent)
    : QObject(parent)
    , m_lock(pathOf("quorvane.lock"))
{
    // The lock of a process that is gone is free; one that is alive keeps it however old it is.
    m_lock.setStaleLockTime(0);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &InstanceLock::receive);
}

bool InstanceLock::take()
{
    if (!m_lock.tryLock()) {
        return false;
    }
    QLocalServer::removeServer(pathOf("quorvane.socket"));
    m_server.listen(pathOf("quorvane.socket"));
    return true;
}

void InstanceLock::receive()
{
    while (QLocalSocket *socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, this, [this, socket] {
            const QString token = QString::fromUtf8(socket->read(kLongestToken));
            socket->deleteLater();
            Q_EMIT activated(token);
        });
    }
}

Result<> InstanceLock::activateOther()
{
    QLocalSocket socket;
    socket.connectToServer(pathOf("quorvane.socket"));
    if (!socket.waitForConnected(kLimitMilliseconds)) {
        return Failure{socket.errorString()};
    }
    socket.write(qgetenv("XDG_ACTIVATION_TOKEN"));
    socket.disconnectFromServer();
    const bool isGiven =
        socket.state() == QLocalSocket::UnconnectedState || socket.waitForDisconnected(kLimitMilliseconds);
    return isGiven ? kDone : Failure{socket.errorString()};
}

} // namespace quorvane
