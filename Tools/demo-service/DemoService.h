#pragma once

#include "demo-service/ServiceState.h"

#include <QHostAddress>
#include <QObject>
#include <QSslConfiguration>
#include <QThreadPool>
#include <QUrl>

#include <functional>
#include <future>
#include <optional>
#include <thread>

namespace quorvane {

/// Where and how a DemoService listens.
struct DemoServiceOptions
{
    QHostAddress address = QHostAddress::LocalHost; ///< Must be a loopback address.
    quint16 port = 0;                               ///< 0 picks a free one.
    std::optional<QSslConfiguration> tls;           ///< Certificate and key for https; plain http without.
};

/// Speaks the request and answer shapes of the three image services on a loopback address and paints the pictures
/// itself. For demonstrations and tests; it is never installed.
///
/// It serves on a thread of its own from construction to destruction, so a client in the same process may block. All
/// members may be called from any thread.
class DemoService : public QObject
{
    Q_OBJECT

  public:
    explicit DemoService(const DemoServiceOptions &options = DemoServiceOptions(), QObject *parent = nullptr);
    ~DemoService() override;

    /// Why nobody listens (a port in use, an address that is not loopback); empty when all is well.
    [[nodiscard]] QString errorString() const { return m_errorString; }

    /// Scheme, host and port, without a slash at the end.
    [[nodiscard]] QUrl baseAddress() const { return m_baseAddress; }

    /// How to treat requests and connections from now on; Misbehaviour() ends it.
    void setMisbehaviour(const Misbehaviour &misbehaviour) { m_state.setMisbehaviour(misbehaviour); }

    /// Asked first about every request, on the service's thread. Where it returns nothing, the service answers.
    void setResponder(const ServiceState::Responder &responder) { m_state.setResponder(responder); }

    /// Makes the pictures in place of the painter, on a pool thread; tests give something small and quick.
    void setPictureMaker(const ServiceState::PictureMaker &maker) { m_state.setPictureMaker(maker); }

    /// The same for pictures that are to be enlarged, which are otherwise stretched to 4K.
    void setEnlarger(const ServiceState::Enlarger &enlarger) { m_state.setEnlarger(enlarger); }

    /// Every whole request so far, in the order of arrival, also those that were refused or misused.
    [[nodiscard]] QList<HttpRequest> requests() const { return m_state.requests(); }
    void clearRequests() { m_state.clearRequests(); }

    /// How many connections were accepted so far.
    [[nodiscard]] int connections() const { return m_state.connections(); }

  private:
    /// The life of the thread.
    void serve(const DemoServiceOptions &options, std::promise<void> &listening);

    QString m_errorString;
    QUrl m_baseAddress;
    ServiceState m_state;
    QThreadPool m_pool;
    std::thread m_thread;
    std::function<void()> m_end; ///< Asks the thread to end.
};

} // namespace quorvane
