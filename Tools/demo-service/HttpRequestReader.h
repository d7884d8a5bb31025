#pragma once

#include "demo-service/HttpMessage.h"

#include <optional>

namespace quorvane {

/// Cuts a stream of bytes into HTTP/1.1 requests. Strict where a lenient reader would hide a client's mistake: lines
/// end in CRLF, names are tokens, a body has a Content-Length, a Host header is there.
class HttpRequestReader
{
  public:
    static constexpr qsizetype kLargestHead = 64 * 1024;
    static constexpr qsizetype kLargestBody = 64 * 1024 * 1024;

    /// Adds what arrived; it may hold less than a request or several.
    void feed(const QByteArray &bytes) { m_bytes += bytes; }

    /// The next whole request, or nothing while bytes are missing. After a refusal there is never another one.
    [[nodiscard]] std::optional<HttpRequest> next();

    /// Why the stream is no HTTP/1.1: a status and a sentence. Status 0 while all is well.
    [[nodiscard]] const HttpAnswer &refusal() const { return m_refusal; }

  private:
    void refuse(int status, const QByteArray &why);
    void readHead(const QByteArray &head);
    void readRequestLine(const QByteArray &line);
    void readHeaderLine(const QByteArray &line);
    void readBodyLength();

    QByteArray m_bytes;
    std::optional<HttpRequest> m_request; ///< Set once its head is complete.
    qsizetype m_bodyLength = 0;
    HttpAnswer m_refusal{0, {}, {}};
};

} // namespace quorvane
