#pragma once

#include <QSslConfiguration>
#include <QTcpServer>
#include <QThreadPool>

#include <optional>

namespace quorvane {

class ServiceState;

/// Accepts connections and gives each its Connection. TLS begins there, not here, so that a connection can misbehave
/// before it.
class Listener : public QTcpServer
{
    Q_OBJECT

  public:
    Listener(std::optional<QSslConfiguration> tls, ServiceState &state, QThreadPool &pool);

  protected:
    void incomingConnection(qintptr descriptor) override;

  private:
    std::optional<QSslConfiguration> m_tls;
    ServiceState &m_state;
    QThreadPool &m_pool;
};

} // namespace quorvane
