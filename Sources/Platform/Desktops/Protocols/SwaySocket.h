#pragma once

#include "Platform/Failure.h"
#include "Platform/Files/SystemCall.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QString>

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

    /// Sends a request and returns the answer's payload. What fails once, opening the connection already, fails with
    /// the same words at every later call.
    [[nodiscard]] Result<QByteArray> ask(Message message, const QByteArray &payload = {});

    /// False before and after any failure.
    [[nodiscard]] bool isConnected() const { return m_connection.isOpen(); }

  private:
    [[nodiscard]] Result<> wait(short events) const;
    [[nodiscard]] Result<> sendAll(const QByteArray &bytes) const;
    [[nodiscard]] Result<> receiveAll(char *bytes, qsizetype size) const;
    Failure fail(const Failure &failure);

    QDeadlineTimer m_deadline;
    FileDescriptor m_connection;
    Failure m_failure; ///< The last; there is one while nothing is connected.
};

} // namespace quorvane
