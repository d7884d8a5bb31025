#include "RawClient.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <limits>

namespace quorvane {

RawClient::RawClient(const QUrl &address)
    : m_socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const timeval limit{10, 0};
    setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    setsockopt(m_socket, SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit);
    sockaddr_in to{};
    to.sin_family = AF_INET;
    to.sin_port = htons(static_cast<uint16_t>(address.port()));
    inet_pton(AF_INET, address.host().toLatin1().constData(), &to.sin_addr);
    EXPECT_EQ(connect(m_socket, reinterpret_cast<const sockaddr *>(&to), sizeof to), 0);
}

RawClient::~RawClient()
{
    ::close(m_socket);
}

void RawClient::send(const QByteArray &bytes)
{
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const ssize_t now = ::send(m_socket, bytes.constData() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (now <= 0) {
            // The kernel tells of a reset once, to whichever call comes first.
            m_end = errno == ECONNRESET ? End::Reset : End::Closed;
            return;
        }
        sent += now;
    }
}

QByteArray RawClient::receive(qsizetype enough)
{
    while (m_received.size() < enough && read(0)) {
    }
    return m_received;
}

QByteArray RawClient::receiveAll()
{
    return receive(std::numeric_limits<qsizetype>::max());
}

QByteArray RawClient::receiveAnswer()
{
    while (!m_received.contains("\r\n\r\n") && read(0)) {
    }
    const qsizetype head = m_received.indexOf("\r\n\r\n") + 4;
    return receive(head + headerOf(m_received, "Content-Length").toLongLong());
}

QByteArray RawClient::receiveNow()
{
    while (read(MSG_DONTWAIT)) {
    }
    return m_received;
}

bool RawClient::read(int flags)
{
    std::array<char, 65536> buffer{};
    const ssize_t now = recv(m_socket, buffer.data(), buffer.size(), flags);
    if (now > 0) {
        m_received.append(buffer.data(), now);
        return true;
    }
    if (now == 0 && m_end == End::Open) {
        m_end = End::Closed;
    } else if (now < 0 && errno == ECONNRESET) {
        m_end = End::Reset;
    }
    return false;
}

QByteArray bodyOf(const QByteArray &answer)
{
    const qsizetype head = answer.indexOf("\r\n\r\n");
    return head < 0 ? QByteArray() : answer.mid(head + 4);
}

QByteArray headerOf(const QByteArray &answer, const QByteArray &name)
{
    const QByteArray head = answer.left(answer.indexOf("\r\n\r\n") + 2);
    const QByteArray front = "\r\n" + name + ": ";
    const qsizetype start = head.indexOf(front);
    return start < 0 ? QByteArray()
                     : head.mid(start + front.size(), head.indexOf("\r\n", start + 2) - start - front.size());
}

QByteArray postRequest(const QByteArray &path, const QByteArray &keyHeader, const QByteArray &body)
{
    return "POST " + path + " HTTP/1.1\r\nHost: 127.0.0.1\r\n" + keyHeader +
           "\r\nContent-Type: application/json\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
           body;
}

QByteArray geminiRequest()
{
    return postRequest("/v1beta/models/gemini-2.5-flash-image:generateContent", "x-goog-api-key: key",
                       R"({"contents":[{"parts":[{"text":"a lake"}]}],"generationConfig":{"responseModalities":)"
                       R"(["IMAGE"],"imageConfig":{"imageSize":"4K","aspectRatio":"16:9"}}})");
}

QByteArray grokRequest()
{
    return postRequest("/v1/images/generations", "Authorization: Bearer key",
                       R"({"model":"grok-imagine-image","prompt":"a lake","response_format":"b64_json","n":1,)"
                       R"("aspect_ratio":"16:9"})");
}

QByteArray openAIRequest()
{
    return postRequest("/v1/images/generations", "Authorization: Bearer key",
                       R"({"model":"gpt-image-2","prompt":"a lake","size":"1536x1024","quality":"high",)"
                       R"("output_format":"png"})");
}

} // namespace quorvane
