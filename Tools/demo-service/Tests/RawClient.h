#pragma once

#include <QByteArray>
#include <QUrl>

namespace quorvane {

/// A plain blocking socket. It tells an orderly end from a reset, which Qt's sockets do not, and believes nothing that
/// the other side says about lengths. Nothing it does takes longer than ten seconds.
class RawClient
{
  public:
    enum class End { Open, Closed, Reset };

    /// Connects to the host and port of address; fails the test where that is not possible.
    explicit RawClient(const QUrl &address);
    ~RawClient();
    RawClient(const RawClient &) = delete;
    RawClient &operator=(const RawClient &) = delete;

    void send(const QByteArray &bytes);

    /// Reads until at least enough bytes came or the connection ended; returns all that came since connecting.
    QByteArray receive(qsizetype enough);

    /// Reads until the connection ends; End::Open when it does not.
    QByteArray receiveAll();

    /// Reads one whole answer that has a Content-Length.
    QByteArray receiveAnswer();

    /// What has arrived without waiting for anything.
    QByteArray receiveNow();

    [[nodiscard]] End end() const { return m_end; }

  private:
    bool read(int flags);

    int m_socket;
    QByteArray m_received;
    End m_end = End::Open;
};

/// What follows the empty line.
[[nodiscard]] QByteArray bodyOf(const QByteArray &answer);

/// The value of that header, or null.
[[nodiscard]] QByteArray headerOf(const QByteArray &answer, const QByteArray &name);

/// A request as bytes, complete with Host and Content-Length.
[[nodiscard]] QByteArray postRequest(const QByteArray &path, const QByteArray &keyHeader, const QByteArray &body);

[[nodiscard]] QByteArray geminiRequest();
[[nodiscard]] QByteArray grokRequest();
[[nodiscard]] QByteArray openAIRequest();

} // namespace quorvane
