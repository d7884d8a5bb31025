#pragma once

#include <QByteArray>
#include <QDeadlineTimer>
#include <QString>

#include <optional>

namespace quorvane {

/// A connection to sway's IPC socket: requests and their answers, framed as "i3-ipc", length, type, payload, with the
/// numbers in the machine's byte order. Never waits beyond the deadline, and never believes a length above 4 MiB.
/// For one thread.
class SwaySocket
{
  public:
    /// The values are sway's.
    enum class Message : quint32 { RunCommand = 0, GetOutputs = 3 };

    SwaySocket(const QString &path, QDeadlineTimer deadline);
    ~SwaySocket();
    SwaySocket(const SwaySocket &) = delete;
    SwaySocket &operator=(const SwaySocket &) = delete;
    SwaySocket(SwaySocket &&) = delete;
    SwaySocket &operator=(SwaySocket &&) = delete;

    /// Sends a request and returns the answer's payload; nothing when there is none, and after that nothing ever.
    [[nodiscard]] std::optional<QByteArray> ask(Message message, const QByteArray &payload = {});

    /// False before and after any failure.
    [[nodiscard]] bool isConnected() const { return m_descriptor >= 0; }

    /// What failed, for the user; empty while nothing did.
    [[nodiscard]] QString error() const { return m_error; }

  private:
    bool wait(short events);
    bool sendAll(const QByteArray &bytes);
    bool receiveAll(char *bytes, qsizetype size);
    void fail(const QString &error);

    QDeadlineTimer m_deadline;
    int m_descriptor;
    QString m_error;
};

} // namespace quorvane
