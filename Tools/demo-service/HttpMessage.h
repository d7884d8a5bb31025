#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QList>

#include <utility>

namespace quorvane {

/// Header fields in the order in which they travel; a name may occur twice.
using HttpHeaders = QList<std::pair<QByteArray, QByteArray>>;

/// One request as it arrived.
struct HttpRequest
{
    QByteArray method;
    QByteArray path; ///< The request target, undecoded: path and query.
    HttpHeaders headers;
    QByteArray body;
    QHostAddress peer;

    /// The value of the first header of that name, in whatever case; null when there is none.
    [[nodiscard]] QByteArray header(const QByteArray &name) const;
};

/// One answer as a well-behaved server sends it.
struct HttpAnswer
{
    int status = 200;
    HttpHeaders headers;
    QByteArray body;

    /// An answer whose body is JSON text.
    [[nodiscard]] static HttpAnswer json(int status, QByteArray body);

    /// The status line, the headers with the right Content-Length, and the empty line.
    [[nodiscard]] QByteArray head() const;
};

/// The status line, exactly these headers, and the empty line.
[[nodiscard]] QByteArray httpHead(int status, const HttpHeaders &headers);

} // namespace quorvane
