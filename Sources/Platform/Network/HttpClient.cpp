// One request is one or more exchanges: redirects are followed here instead of in Qt, because Qt would carry every
// header along to another host. A finished exchange is judged by whether an HTTP answer came back whole, not by Qt's
// error code, which counts 404 and 500 as failures although their bodies are what the caller wants to read.

#include "Platform/Network/HttpClient.h"

#include "Platform/Network/TrustedCertificates.h"

#include <QCoreApplication>
#include <QCoroFuture>
#include <QHostAddress>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPromise>
#include <QSslError>

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// Browsers give up after 20; a service that needs more than a few is looping.
constexpr int kRedirectLimit = 10;
constexpr int kFirstRedirectStatus = 300;
constexpr int kFirstErrorStatus = 400;

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(HttpClient)
};

bool sameOrigin(const QUrl &left, const QUrl &right)
{
    constexpr int kHttps = 443;
    constexpr int kHttp = 80;
    const auto port = [](const QUrl &url) { return url.port(url.scheme() == "https"_L1 ? kHttps : kHttp); };
    return left.scheme() == right.scheme() && left.host() == right.host() && port(left) == port(right);
}

// Qt turns each status from 400 on into one of these; anything else means that the transport itself failed.
bool isStatusOnly(QNetworkReply::NetworkError error)
{
    static constexpr std::array kStatusErrors{QNetworkReply::NoError,
                                              QNetworkReply::ContentAccessDenied,
                                              QNetworkReply::ContentOperationNotPermittedError,
                                              QNetworkReply::ContentNotFoundError,
                                              QNetworkReply::AuthenticationRequiredError,
                                              QNetworkReply::ContentReSendError,
                                              QNetworkReply::ContentConflictError,
                                              QNetworkReply::ContentGoneError,
                                              QNetworkReply::UnknownContentError,
                                              QNetworkReply::ProtocolInvalidOperationError,
                                              QNetworkReply::ProxyAuthenticationRequiredError,
                                              QNetworkReply::InternalServerError,
                                              QNetworkReply::OperationNotImplementedError,
                                              QNetworkReply::ServiceUnavailableError,
                                              QNetworkReply::UnknownServerError};
    return std::find(kStatusErrors.begin(), kStatusErrors.end(), error) != kStatusErrors.end();
}

} // namespace

TransportError::TransportError(QString description)
    : m_description(std::move(description))
    , m_utf8(m_description.toUtf8())
{
}

bool isAllowedAddress(const QUrl &url)
{
    if (!url.isValid() || url.host().isEmpty()) {
        return false;
    }
    if (url.scheme() == "https"_L1) {
        return true;
    }
    const QHostAddress address(url.host());
    return url.scheme() == "http"_L1 && (url.host() == "localhost"_L1 || (!address.isNull() && address.isLoopback()));
}

/// What one request has gathered so far, over all its exchanges.
struct HttpClient::Exchange
{
    Request request;
    bool asGet = false;
    QByteArray answer;
    bool tooLarge = false;
    QString certificateProblem;
};

HttpClient::HttpClient(qint64 answerLimitBytes)
    : m_answerLimitBytes(answerLimitBytes)
{
    m_network.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
}

HttpClient::~HttpClient() = default;

void HttpClient::cancelAll()
{
    m_stop.request_stop();
}

/// Lives as long as a request runs. When none does any more, connections and their thread go: a program that waits for
/// hours shall not be woken to keep them.
class HttpClient::Busy
{
  public:
    explicit Busy(HttpClient *client)
        : m_client(client)
    {
        ++m_client->m_running;
    }
    ~Busy()
    {
        if (--m_client->m_running == 0) {
            m_client->m_network.clearConnectionCache();
        }
    }
    Busy(const Busy &) = delete;
    Busy &operator=(const Busy &) = delete;
    Busy(Busy &&) = delete;
    Busy &operator=(Busy &&) = delete;

  private:
    HttpClient *m_client;
};

QCoro::Task<QByteArray> HttpClient::post(Request request)
{
    const QUrl origin = request.url;
    auto state = std::make_unique<Exchange>();
    state->request = std::move(request);
    const Busy busy(this);
    for (int redirects = 0; redirects <= kRedirectLimit; ++redirects) {
        if (!isAllowedAddress(state->request.url)) {
            throw TransportError(redirects == 0 ? Tr::tr("The address is neither https nor on this machine.")
                                                : Tr::tr("The service redirected to an address without encryption."));
        }
        if (!sameOrigin(origin, state->request.url)) {
            state->request.secret = {};
        }
        const std::optional<QUrl> target = co_await exchange(state.get());
        if (!target) {
            co_return std::move(state->answer);
        }
        state->request.url = *target;
    }
    throw TransportError(Tr::tr("The service redirected too many times."));
}

/// Sends the request once and gathers the answer; returns the target when the answer is a redirect.
QCoro::Task<std::optional<QUrl>> HttpClient::exchange(Exchange *state)
{
    if (m_stop.stop_requested()) {
        throw TransportError(Tr::tr("The request was cancelled."));
    }
    QNetworkRequest request(state->request.url);
    if (!m_tls) {
        m_tls = trustedTlsConfiguration();
    }
    request.setSslConfiguration(*m_tls);
    request.setTransferTimeout(static_cast<int>(state->request.silenceLimit.count()));
    if (!state->request.secret.name.isEmpty()) {
        request.setRawHeader(state->request.secret.name, state->request.secret.value);
    }
    if (!state->asGet) {
        request.setRawHeader("Content-Type", state->request.contentType);
    }
    const std::unique_ptr<QNetworkReply> reply(state->asGet ? m_network.get(request)
                                                            : m_network.post(request, state->request.body));
    state->answer.clear();

    QObject::connect(reply.get(), &QNetworkReply::readyRead, reply.get(), [this, state, reply = reply.get()] {
        if (state->answer.size() + reply->bytesAvailable() > m_answerLimitBytes) {
            state->tooLarge = true;
            reply->abort();
            return;
        }
        state->answer += reply->readAll();
    });
    QObject::connect(reply.get(), &QNetworkReply::sslErrors, reply.get(), [state](const QList<QSslError> &errors) {
        state->certificateProblem = errors.isEmpty() ? QString() : errors.first().errorString();
    });
    QPromise<void> finished;
    QFuture<void> future = finished.future();
    finished.start();
    QObject::connect(reply.get(), &QNetworkReply::finished, reply.get(), [&finished] { finished.finish(); });
    {
        const std::stop_callback abortOnStop(m_stop.get_token(), [reply = reply.get()] { reply->abort(); });
        co_await future;
    }

    if (m_stop.stop_requested()) {
        throw TransportError(Tr::tr("The request was cancelled."));
    }
    if (state->tooLarge) {
        throw TransportError(Tr::tr("The answer is larger than %1 MiB.").arg(m_answerLimitBytes / (1024LL * 1024)));
    }
    if (!state->certificateProblem.isEmpty()) {
        throw TransportError(
            Tr::tr("No secure connection to %1: %2").arg(state->request.url.host(), state->certificateProblem));
    }
    if (reply->error() == QNetworkReply::OperationCanceledError) {
        throw TransportError(Tr::tr("The request timed out."));
    }
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    // Qt tells an answer that does not unpack, or unpacks to far too much, like an unusual status.
    const bool isWhole =
        reply->error() == QNetworkReply::NoError || (status >= kFirstErrorStatus && isStatusOnly(reply->error()));
    if (status == 0 || !isWhole) {
        throw TransportError(reply->errorString());
    }
    if (status >= kFirstRedirectStatus && status < kFirstErrorStatus) {
        const QUrl target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
        if (!target.isEmpty()) {
            constexpr int kSeeOther = 303;
            state->asGet = state->asGet || status <= kSeeOther;
            co_return state->request.url.resolved(target);
        }
    }
    state->answer += reply->readAll();
    co_return std::nullopt;
}

} // namespace quorvane
