// HTTP/2 here is the little of RFC 9113 that one request and one answer need. Header fields go out as literals, which
// takes no compression tables (RFC 7541, 6.2.2); of those that come in only the method is read.

#include "Integration/CountingServer.h"

#include <QSslSocket>
#include <QtEndian>

#include <gtest/gtest.h>

#include <sys/socket.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Takes = Breakage::Takes;
using Gives = Breakage::Gives;
using Ends = Breakage::Ends;
using Headers = QList<std::pair<QByteArray, QByteArray>>;

// Frames of HTTP/2.
constexpr qsizetype kFrameHead = 9;
constexpr quint8 kData = 0;
constexpr quint8 kHeaders = 1;
constexpr quint8 kResetStream = 3;
constexpr quint8 kSettings = 4;
constexpr quint8 kGoAway = 7;
constexpr quint8 kWindowUpdate = 8;
constexpr quint8 kEndStream = 0x1;
constexpr quint8 kAcknowledged = 0x1;
constexpr quint8 kEndHeaders = 0x4;
constexpr quint8 kHasPriority = 0x20;
constexpr char kMethodGet = '\x82'; // The entries of the static table.
constexpr char kMethodPost = '\x83';

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray frame(quint8 type, quint8 flags, quint32 stream, const QByteArray &payload)
{
    QByteArray bytes = bigEndian(static_cast<quint32>(payload.size())).sliced(1);
    bytes += static_cast<char>(type);
    bytes += static_cast<char>(flags);
    return bytes + bigEndian(stream) + payload;
}

/// What a server says first: any amount of body may come.
QByteArray openWindows()
{
    constexpr quint32 kWidest = 0x7fffffff;
    constexpr quint32 kAtFirst = 65535;
    const QByteArray initialWindow = QByteArray("\x00\x04", 2) + bigEndian(kWidest);
    return frame(kSettings, 0, 0, initialWindow) + frame(kWindowUpdate, 0, 0, bigEndian(kWidest - kAtFirst));
}

/// The entry of the static table that says the method: clients send the authority first, as a literal or as an entry.
char methodIn(const QByteArray &fields)
{
    constexpr char kAuthorityLiteral = 0x41;
    constexpr int kLength = 0x7f;
    const qsizetype at = fields.at(0) == kAuthorityLiteral ? 2 + (fields.at(1) & kLength) : 1;
    return fields.at(at);
}

QByteArray literalField(const QByteArray &name, const QByteArray &value)
{
    return QByteArray(1, '\0') + static_cast<char>(name.size()) + name + static_cast<char>(value.size()) + value;
}

QByteArray headerBlock(int status, const Headers &headers)
{
    QByteArray block = literalField(":status", QByteArray::number(status));
    for (const auto &[name, value] : headers) {
        block += literalField(name, value);
    }
    return block;
}

QByteArray headLines(int status, const Headers &headers)
{
    QByteArray head = "HTTP/1.1 " + QByteArray::number(status) + " So\r\n";
    for (const auto &[name, value] : headers) {
        head += name + ": " + value + "\r\n";
    }
    return head + "\r\n";
}

Headers answerHeaders(const Breakage &breakage)
{
    Headers headers = breakage.headers;
    headers.emplaceBack("content-type", "application/json");
    headers.emplaceBack("content-length", QByteArray::number(breakage.body.size()));
    return headers;
}

} // namespace

struct CountingServer::Peer
{
    std::unique_ptr<QTcpSocket> socket;
    QByteArray received;
    bool isHttp2 = false;
    bool hasPreface = false;
    bool isDone = false;     ///< The breakage has happened; what still comes is not read.
    qsizetype bodyLeft = -1; ///< Over HTTP/1: of the request being read; -1 between requests.
    quint32 stream = 0;      ///< Over HTTP/2: of the request being read.
};

CountingServer::CountingServer(Protocol protocol, Breakage breakage, const QSslConfiguration &tls)
    : m_protocol(protocol)
    , m_breakage(std::move(breakage))
    , m_tls(tls)
{
    m_tls.setAllowedNextProtocols({protocol == Protocol::Http2 ? "h2" : "http/1.1"});
    listen(QHostAddress::LocalHost);
}

CountingServer::~CountingServer() = default;

QUrl CountingServer::address() const
{
    const QLatin1String scheme = m_protocol == Protocol::Http1 ? "http"_L1 : "https"_L1;
    return QUrl(u"%1://127.0.0.1:%2"_s.arg(scheme).arg(serverPort()));
}

int CountingServer::open() const
{
    return static_cast<int>(std::count_if(m_peers.begin(), m_peers.end(), [](const std::unique_ptr<Peer> &peer) {
        return peer->socket->state() != QAbstractSocket::UnconnectedState;
    }));
}

void CountingServer::incomingConnection(qintptr descriptor)
{
    auto peer = std::make_unique<Peer>();
    peer->isHttp2 = m_protocol == Protocol::Http2;
    if (m_protocol == Protocol::Http1) {
        peer->socket = std::make_unique<QTcpSocket>();
        peer->socket->setSocketDescriptor(descriptor);
    } else {
        auto secure = std::make_unique<QSslSocket>();
        secure->setSslConfiguration(m_tls);
        secure->setSocketDescriptor(descriptor);
        secure->startServerEncryption();
        peer->socket = std::move(secure);
    }
    QObject::connect(peer->socket.get(), &QIODevice::readyRead, peer->socket.get(),
                     [this, it = peer.get()] { read(it); });
    m_peers.push_back(std::move(peer));
}

void CountingServer::read(Peer *peer)
{
    if (peer->isDone) {
        return;
    }
    peer->received += peer->socket->readAll();
    if (peer->isHttp2) {
        readHttp2(peer);
    } else {
        readHttp1(peer);
    }
}

void CountingServer::readHttp1(Peer *peer)
{
    if (peer->bodyLeft < 0) {
        const qsizetype end = peer->received.indexOf("\r\n\r\n");
        if (end < 0) {
            return;
        }
        const QByteArray head = peer->received.first(end + 2);
        peer->received.remove(0, end + 4);
        m_heads.append(head);
        if (head.startsWith("GET ")) {
            ++m_gets;
            peer->socket->write(headLines(200, {{"content-length", "2"}}) + "{}");
            return;
        }
        if (head.startsWith("CONNECT ")) {
            ++m_connects;
        } else {
            ++m_posts;
        }
        m_bodyBytes = 0;
        const QByteArray lower = head.toLower();
        const qsizetype length = lower.indexOf("content-length: ");
        peer->bodyLeft =
            length < 0 ? 0 : lower.sliced(length + 16, lower.indexOf('\r', length) - length - 16).toLongLong();
        advance(peer, Takes::Head);
    }
    if (peer->isDone) {
        return;
    }
    const qsizetype part = std::min(peer->bodyLeft, peer->received.size());
    peer->received.remove(0, part);
    peer->bodyLeft -= part;
    m_bodyBytes += part;
    if (part > 0) {
        advance(peer, Takes::SomeBody);
    }
    if (!peer->isDone && peer->bodyLeft == 0) {
        peer->bodyLeft = -1;
        advance(peer, Takes::Request);
    }
}

void CountingServer::readHttp2(Peer *peer)
{
    static const QByteArray kPreface("PRI * HTTP/2.0\r\n\r\nSM\r\n\r\n");
    if (!peer->hasPreface) {
        if (peer->received.size() < kPreface.size()) {
            return;
        }
        peer->received.remove(0, kPreface.size());
        peer->hasPreface = true;
        peer->socket->write(openWindows());
    }
    while (!peer->isDone && peer->received.size() >= kFrameHead) {
        const auto *head = reinterpret_cast<const uchar *>(peer->received.constData());
        const qsizetype size = (qsizetype{head[0]} << 16U) | (qsizetype{head[1]} << 8U) | head[2];
        if (peer->received.size() < kFrameHead + size) {
            return;
        }
        const quint8 type = head[3];
        const quint8 flags = head[4];
        const quint32 stream = qFromBigEndian<quint32>(head + 5);
        const QByteArray payload = peer->received.sliced(kFrameHead, size);
        peer->received.remove(0, kFrameHead + size);
        if (type == kSettings && (flags & kAcknowledged) == 0) {
            peer->socket->write(frame(kSettings, kAcknowledged, 0, {}));
        } else if (type == kHeaders) {
            const QByteArray fields = (flags & kHasPriority) != 0 ? payload.sliced(5) : payload;
            peer->stream = stream;
            if (methodIn(fields) == kMethodGet) {
                ++m_gets;
                peer->socket->write(frame(kHeaders, kEndHeaders, stream, headerBlock(200, {})) +
                                    frame(kData, kEndStream, stream, "{}"));
                continue;
            }
            EXPECT_EQ(methodIn(fields), kMethodPost) << fields.toHex().constData();
            ++m_posts;
            m_bodyBytes = 0;
            advance(peer, Takes::Head);
        } else if (type == kData) {
            m_bodyBytes += size;
            if (size > 0) {
                advance(peer, Takes::SomeBody);
            }
            if (!peer->isDone && (flags & kEndStream) != 0) {
                advance(peer, Takes::Request);
            }
        }
    }
}

void CountingServer::advance(Peer *peer, Takes seen)
{
    if (peer->isDone || seen < m_breakage.takes) {
        return;
    }
    m_hasBroken = true;
    // Only after a whole answer on a connection that stays is there anything more to read.
    peer->isDone =
        m_breakage.takes != Takes::Request || m_breakage.gives != Gives::Answer || m_breakage.ends != Ends::Not;
    give(peer);
    end(peer);
}

void CountingServer::give(Peer *peer)
{
    const QByteArray &body = m_breakage.body;
    const QByteArray half = body.first(body.size() / 2);
    const Headers headers = answerHeaders(m_breakage);
    QByteArray head;
    QByteArray interim;
    if (peer->isHttp2) {
        head = frame(kHeaders, kEndHeaders, peer->stream, headerBlock(m_breakage.status, headers));
        interim = frame(kHeaders, kEndHeaders, peer->stream, headerBlock(100, {}));
    } else {
        head = headLines(m_breakage.status, headers);
        interim = headLines(100, {});
    }
    switch (m_breakage.gives) {
    case Gives::Nothing:
        break;
    case Gives::Continue:
        peer->socket->write(interim);
        break;
    case Gives::HalfHead:
        peer->socket->write(head.first(head.size() / 2));
        break;
    case Gives::Head:
        peer->socket->write(head);
        break;
    case Gives::HalfBody:
        peer->socket->write(head + (peer->isHttp2 ? frame(kData, 0, peer->stream, half) : half));
        break;
    case Gives::Answer:
        peer->socket->write(head + (peer->isHttp2 ? frame(kData, kEndStream, peer->stream, body) : body));
        break;
    }
}

void CountingServer::end(Peer *peer)
{
    QTcpSocket *socket = peer->socket.get();
    const QByteArray goAway = frame(kGoAway, 0, 0, bigEndian(0) + bigEndian(m_breakage.errorCode));
    switch (m_breakage.ends) {
    case Ends::Not:
        break;
    case Ends::Close:
        socket->disconnectFromHost();
        break;
    case Ends::Reset: {
        while (socket->bytesToWrite() > 0 && socket->waitForBytesWritten(1000)) {
        }
        // Closing with a linger time of zero makes the kernel send a reset instead of an orderly end.
        const linger atOnce{1, 0};
        setsockopt(static_cast<int>(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        socket->abort();
        break;
    }
    case Ends::GoAway:
        socket->write(goAway);
        break;
    case Ends::GoAwayClose:
        socket->write(goAway);
        socket->disconnectFromHost();
        break;
    case Ends::ResetStream:
        socket->write(frame(kResetStream, 0, peer->stream, bigEndian(m_breakage.errorCode)));
        break;
    }
}

} // namespace quorvane
