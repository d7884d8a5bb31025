#pragma once

#include <QByteArray>
#include <QList>
#include <QSslConfiguration>
#include <QTcpServer>
#include <QUrl>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {

/// What a CountingServer does with every POST: how much of it it takes, how much of an answer it gives, and how it
/// ends.
struct Breakage
{
    enum class Takes { Head, SomeBody, Request };
    enum class Gives { Nothing, Continue, HalfHead, Head, HalfBody, Answer };
    enum class Ends {
        Not,         ///< The connection stays open.
        Close,       ///< In order.
        Reset,       ///< With a TCP reset.
        GoAway,      ///< HTTP/2: the server takes no streams any more, this one included, and the connection stays.
        GoAwayClose, ///< HTTP/2: the same, and the connection is closed.
        ResetStream  ///< HTTP/2: this stream ends with errorCode.
    };

    std::string name;
    Takes takes = Takes::Request;
    Gives gives = Gives::Nothing;
    Ends ends = Ends::Close;
    int status = 200;
    QList<std::pair<QByteArray, QByteArray>> headers{}; ///< Names in lower case.
    QByteArray body{};
    quint32 errorCode = 0;
};

/// A server on loopback, HTTP/1.1 or HTTP/2 down to the frames, that counts requests as soon as their head is there,
/// whether or not the rest follows. Lives on the test's thread.
class CountingServer : public QTcpServer
{
  public:
    enum class Protocol { Http1, Http1Tls, Http2 };

    /// tls is the certificate and key, for the protocols that need one.
    CountingServer(Protocol protocol, Breakage breakage, const QSslConfiguration &tls);
    ~CountingServer() override;
    CountingServer(const CountingServer &) = delete;
    CountingServer &operator=(const CountingServer &) = delete;

    [[nodiscard]] QUrl address() const;

    /// Requests whose head came. A GET is answered with an empty object.
    [[nodiscard]] int posts() const { return m_posts; }
    [[nodiscard]] int gets() const { return m_gets; }
    [[nodiscard]] int connects() const { return m_connects; }

    /// The heads of the requests over HTTP/1, in the order of arrival.
    [[nodiscard]] const QByteArrayList &heads() const { return m_heads; }

    /// Bytes of the last POST's body so far.
    [[nodiscard]] qsizetype bodyBytes() const { return m_bodyBytes; }

    /// Connections that are still open on this side.
    [[nodiscard]] int open() const;

    /// Whether the breakage has happened.
    [[nodiscard]] bool hasBroken() const { return m_hasBroken; }

  protected:
    void incomingConnection(qintptr descriptor) override;

  private:
    struct Peer;
    void read(Peer *peer);
    void readHttp1(Peer *peer);
    void readHttp2(Peer *peer);
    /// The request has come as far as seen; does what the breakage says once that is enough.
    void advance(Peer *peer, Breakage::Takes seen);
    void give(Peer *peer);
    void end(Peer *peer);

    Protocol m_protocol;
    Breakage m_breakage;
    QSslConfiguration m_tls;
    std::vector<std::unique_ptr<Peer>> m_peers;
    QByteArrayList m_heads;
    qsizetype m_bodyBytes = 0;
    int m_posts = 0;
    int m_gets = 0;
    int m_connects = 0;
    bool m_hasBroken = false;
};

} // namespace quorvane
