#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

namespace quorvane {

/// The program's own connection to the session bus. Where the bus goes away, as when it is restarted, the connection
/// comes back with it, and whoever has objects there puts them there again at connected().
class SessionBus : public QObject
{
    Q_OBJECT

  public:
    explicit SessionBus(QObject *parent = nullptr);
    ~SessionBus() override;

    /// Where the session's bus listens: DBUS_SESSION_BUS_ADDRESS, or "bus" in the run-time folder. Empty where there is
    /// none; no bus is ever started.
    [[nodiscard]] static QString address();

    [[nodiscard]] bool isConnected() const { return connection().isConnected(); }
    [[nodiscard]] QDBusConnection connection() const { return QDBusConnection(m_name); }

  Q_SIGNALS:
    void connected();
    void disconnected();

  private Q_SLOTS:
    void lost();

  private:
    void open();
    void retry();

    QString m_name;
    QTimer m_retry;
};

} // namespace quorvane
