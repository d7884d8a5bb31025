#pragma once

#include "Platform/DescribedError.h"

#include <QByteArray>
#include <QCoroTask>
#include <QList>
#include <QSslConfiguration>
#include <QString>
#include <QUrl>

#include <chrono>
#include <optional>
#include <stop_token>

namespace quorvane {

/// Why no answer came: the transport's own description in one sentence. Never holds a header's value.
class TransportError : public DescribedError
{
    using DescribedError::DescribedError;
};

/// True for https addresses and for http to a loopback address: the only ones that a request may go to.
[[nodiscard]] bool isAllowedAddress(const QUrl &url);

/// Sends requests over verified TLS (HTTP/2 where the server has it) and collects whole answers. Belongs to a thread
/// with an event loop; any number of requests may run at once.
///
/// A call is one POST on a connection of its own, whatever happens to it: who asks a service for a picture may have to
/// pay for every request that arrives there.
class HttpClient
{
  public:
    struct Header
    {
        QByteArray name;
        QByteArray value;
    };

    struct Request
    {
        QUrl url;               ///< https, or http to this machine.
        QByteArray contentType; ///< Sent with the body.
        Header secret;          ///< Goes to the origin of url alone, not along redirects elsewhere.
        QByteArray body;        ///< Sent with POST, once.
        std::chrono::milliseconds silenceLimit{60000}; ///< How long no byte may move before the request fails.
        std::stop_token stop{};                        ///< Ends it on the wire, from the thread of the client.
    };

    /// Above this an answer is refused instead of filling the memory. The largest honest one, a 4K PNG of pure noise as
    /// base64, has 33 MiB; five times that leaves room for pictures to grow.
    static constexpr qint64 kAnswerLimitBytes = 192LL * 1024 * 1024;

    explicit HttpClient(qint64 answerLimitBytes = kAnswerLimitBytes);
    ~HttpClient();
    HttpClient(const HttpClient &) = delete;
    HttpClient &operator=(const HttpClient &) = delete;
    HttpClient(HttpClient &&) = delete;
    HttpClient &operator=(HttpClient &&) = delete;

    /// The body of the answer, whatever its HTTP status. Throws TransportError when none came, the answer broke off,
    /// was too large, the certificate does not hold, or a redirect leads to an address that is not allowed; and
    /// std::bad_alloc when there is not enough memory for it.
    /// Redirects that browsers follow with GET (301, 302 and 303) are followed so, and the secret header stays with its
    /// origin; those that want the POST again (307 and 308) are an error that tells the new address.
    [[nodiscard]] QCoro::Task<QByteArray> post(Request request);

    /// Ends every running request with a TransportError, and every later one at once. For tearing down.
    void cancelAll();

  private:
    struct Exchange;
    [[nodiscard]] QCoro::Task<std::optional<QUrl>> exchange(Exchange *state);

    std::optional<QSslConfiguration> m_tls; ///< Read with the first https request, because many starts make none.
    qint64 m_answerLimitBytes;
    std::stop_source m_stop;
};

} // namespace quorvane
