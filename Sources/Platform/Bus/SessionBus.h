#pragma once

#include "Platform/Bus/MessageBus.h"

#include <QObject>
#include <QTimer>

namespace quorvane {

/// The session bus for what lives as long as the program does. Where the bus goes away, as when it is restarted, the
/// connection comes back with it, and whoever has objects there puts them there again at connected().
class SessionBus : public QObject
{
    Q_OBJECT

  public:
    explicit SessionBus(QObject *parent = nullptr);

    [[nodiscard]] bool isConnected() const { return m_bus.isConnected(); }
    [[nodiscard]] QDBusConnection connection() const { return m_bus.connection(); }
    /// For calls that are waited for.
    [[nodiscard]] const MessageBus &bus() const { return m_bus; }

  Q_SIGNALS:
    void connected();
    void disconnected();

  private Q_SLOTS:
    void lost();

  private:
    void listen();
    void retry();

    MessageBus m_bus;
    QTimer m_retry;
};

} // namespace quorvane
