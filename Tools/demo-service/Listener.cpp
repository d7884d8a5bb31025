#include "demo-service/Listener.h"

#include "demo-service/Connection.h"

#include <QSslSocket>

#include <unistd.h>

#include <memory>
#include <utility>

namespace quorvane {

Listener::Listener(std::optional<QSslConfiguration> tls, ServiceState &state, QThreadPool &pool)
    : m_tls(std::move(tls))
    , m_state(state)
    , m_pool(pool)
{
}

void Listener::incomingConnection(qintptr descriptor)
{
    std::unique_ptr<QTcpSocket> socket;
    if (m_tls) {
        auto secure = std::make_unique<QSslSocket>();
        secure->setSslConfiguration(*m_tls);
        socket = std::move(secure);
    } else {
        socket = std::make_unique<QTcpSocket>();
    }
    if (!socket->setSocketDescriptor(descriptor)) {
        ::close(static_cast<int>(descriptor));
        return;
    }
    new Connection(socket.release(), m_state, m_pool, this);
}

} // namespace quorvane
