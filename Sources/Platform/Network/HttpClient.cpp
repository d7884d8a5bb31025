// One request is one or more exchanges: redirects are followed here instead of in Qt, because Qt would carry every
// header along to another host. A finished exchange is judged by whether an HTTP answer came back whole, not by Qt's
// error code, which counts 404 and 500 as failures although their bodies are what the caller wants to read.
//
// Qt by itself sends a POST again: over HTTP/1.1 up to three times when the connection ends before the answer began,
// and once more for every step of NTLM. Neither can be switched off as such. But Qt has to rewind the body for it, so
// the body is a device that gives its bytes once; a connection that was idle, which servers may close at any moment, is
// never used; and challenges are not answered.
//
// Answers have many megabytes, and where memory is short Qt ends the program. So Qt holds a small part of one at a
// time, and what grows is our own, here, where a lack of memory is one more reason why no answer came.

#include "Platform/Network/HttpClient.h"

#include "Platform/Logging.h"
#include "Platform/Network/OnceReadBody.h"
#include "Platform/Network/TrustedCertificates.h"
#include "Platform/Threads/Worker.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QCoroFuture>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPromise>
#include <QSslError>

#include <algorithm>
#include <array>
#include <memory>
#include <new>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

// Browsers give up after 20; a service that needs more than a few is looping.
constexpr int kRedirectLimit = 10;
constexpr int kFirstRedirectStatus = 300;
constexpr int kFirstErrorStatus = 400;
constexpr qint64 kReadAheadBytes = 256LL * 1024; ///< Of an answer in Qt's hands.

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

// Why no whole answer came.
QString brokenOff(const QNetworkReply &reply, int status)
{
    // Where Qt knows nothing it says so in these words, and where it would have liked to send the body again it
    // complains of that.
    const bool isUntold = reply.error() == QNetworkReply::ContentReSendError ||
                          reply.error() == QNetworkReply::RemoteHostClosedError ||
                          reply.errorString() == QBuffer().errorString();
    if (!isUntold) {
        return reply.errorString();
    }
    return status == 0 ? Tr::tr("The service closed the connection before it answered.")
                       : Tr::tr("The service closed the connection in the middle of its answer.");
}

// Why a redirect that would repeat the POST is not followed.
QString movedTo(const QUrl &url)
{
    if (!isAllowedAddress(url)) {
        return Tr::tr("The service redirected to an address without encryption.");
    }
    return Tr::tr("The service has moved to %1")
        .arg(url.toString(QUrl::RemoveQuery | QUrl::RemoveFragment | QUrl::RemoveUserInfo));
}

/// Appends what has arrived to answer. Throws std::bad_alloc.
void take(QNetworkReply &reply, QByteArray &answer)
{
    const qsizetype before = answer.size();
    const qsizetype arrived = reply.bytesAvailable();
    answer.resize(before + arrived);
    const qint64 read = reply.read(answer.data() + before, arrived);
    answer.truncate(before + std::max<qint64>(read, 0));
}

// Of the statuses that say where to ask instead, those from which on a POST stays one.
constexpr int kTemporaryRedirect = 307;

// Qt turns each status from 400 on into one of these; anything else means that the transport itself failed.
bool isStatusOnly(QNetworkReply::NetworkError error)
{
    static constexpr std::array kStatusErrors{QNetworkReply::NoError,
                                              QNetworkReply::ContentAccessDenied,
                                              QNetworkReply::ContentOperationNotPermittedError,
                                              QNetworkReply::ContentNotFoundError,
                                              QNetworkReply::AuthenticationRequiredError,
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
    bool lacksMemory = false;
    std::optional<QString> certificateProblem;
};

HttpClient::HttpClient(qint64 answerLimitBytes)
    : m_answerLimitBytes(answerLimitBytes)
{
}

HttpClient::~HttpClient() = default;

void HttpClient::cancelAll()
{
    m_stop.request_stop();
}

QCoro::Task<QByteArray> HttpClient::post(Request request)
{
    const QUrl origin = request.url;
    auto state = std::make_unique<Exchange>();
    state->request = std::move(request);
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
    const auto throwWhenStopped = [this, state] {
        if (m_stop.stop_requested() || state->request.stop.stop_requested()) {
            throw TransportError(Tr::tr("The request was cancelled."));
        }
    };
    throwWhenStopped();
    if (!m_tls && state->request.url.scheme() == "https"_L1) {
        // Hundreds of certificates take longer to read than a window may stand still.
        m_tls = co_await onWorker(trustedTlsConfiguration);
        throwWhenStopped();
    }
    QNetworkRequest request(state->request.url);
    if (m_tls) {
        request.setSslConfiguration(*m_tls);
    }
    request.setTransferTimeout(static_cast<int>(state->request.silenceLimit.count()));
    if (!state->request.secret.name.isEmpty()) {
        request.setRawHeader(state->request.secret.name, state->request.secret.value);
    }
    // A challenge ends the exchange, with its words.
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    std::unique_ptr<OnceReadBody> body;
    if (!state->asGet) {
        request.setRawHeader("Content-Type", state->request.contentType);
        // Without these two Qt would copy the body into a buffer of its own, from which it could send it again.
        request.setHeader(QNetworkRequest::ContentLengthHeader, state->request.body.size());
        request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
        body = std::make_unique<OnceReadBody>(std::exchange(state->request.body, {}));
    }
    // Of this exchange alone: its connection and the thread that serves it go with it, so that a program that waits for
    // hours is not woken to keep them.
    QNetworkAccessManager network;
    network.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
    const std::unique_ptr<QNetworkReply> reply(body ? network.post(request, body.get()) : network.get(request));
    // Qt begins with a POST in the next turn of the event loop and knows nothing of what was set before.
    QMetaObject::invokeMethod(
        reply.get(), [reply = reply.get()] { reply->setReadBufferSize(kReadAheadBytes); }, Qt::QueuedConnection);
    // Qt unpacks behind that limit and stops there until the time limit, so what comes packed is read without it.
    QObject::connect(reply.get(), &QNetworkReply::metaDataChanged, reply.get(), [reply = reply.get()] {
        if (reply->hasRawHeader("Content-Encoding")) {
            reply->setReadBufferSize(0);
        }
    });
    state->answer.clear();
    QElapsedTimer clock;
    clock.start();

    QObject::connect(reply.get(), &QNetworkReply::readyRead, reply.get(), [this, state, reply = reply.get()] {
        state->tooLarge = state->answer.size() + reply->bytesAvailable() > m_answerLimitBytes;
        try {
            if (!state->tooLarge) {
                take(*reply, state->answer);
            }
        } catch (const std::bad_alloc &) {
            state->lacksMemory = true;
        }
        if (state->tooLarge || state->lacksMemory) {
            reply->abort();
        }
    });
    QObject::connect(reply.get(), &QNetworkReply::sslErrors, reply.get(), [state](const QList<QSslError> &errors) {
        if (!errors.isEmpty()) {
            state->certificateProblem = errors.first().errorString();
        }
    });
    QPromise<void> finished;
    QFuture<void> future = finished.future();
    finished.start();
    QObject::connect(reply.get(), &QNetworkReply::finished, reply.get(), [&finished] { finished.finish(); });
    {
        const auto abort = [reply = reply.get()] { reply->abort(); };
        const std::stop_callback abortAll(m_stop.get_token(), abort);
        const std::stop_callback abortThis(state->request.stop, abort);
        co_await future;
    }
    // The path and the texts may hold what is nobody's business.
    qCInfo(logNetwork).noquote() << state->request.url.host() << "was sent"
                                 << request.header(QNetworkRequest::ContentLengthHeader).toLongLong()
                                 << "bytes and gave" << state->answer.size() << "after" << clock.elapsed()
                                 << "ms, status" << reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt()
                                 << "error" << static_cast<int>(reply->error());

    throwWhenStopped();
    if (state->lacksMemory) {
        throw std::bad_alloc();
    }
    if (state->tooLarge) {
        throw TransportError(Tr::tr("The answer is larger than %1 MiB.").arg(m_answerLimitBytes / (1024LL * 1024)));
    }
    if (state->certificateProblem) {
        throw TransportError(
            Tr::tr("No secure connection to %1: %2").arg(state->request.url.host(), *state->certificateProblem));
    }
    if (reply->error() == QNetworkReply::OperationCanceledError) {
        throw TransportError(Tr::tr("The request timed out."));
    }
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QUrl target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (reply->error() == QNetworkReply::ContentReSendError && !target.isEmpty()) {
        throw TransportError(movedTo(state->request.url.resolved(target)));
    }
    // A challenge ends the exchange: over HTTP/2 before its words are there, over HTTP/1.1 once Qt has read ahead, of
    // which it gives at least half.
    const bool isCut = reply->attribute(QNetworkRequest::Http2WasUsedAttribute).toBool()
                           ? state->answer.isEmpty()
                           : state->answer.size() >= kReadAheadBytes / 2;
    if (isCut) {
        if (reply->error() == QNetworkReply::AuthenticationRequiredError) {
            throw TransportError(Tr::tr("The service did not accept the API key."));
        }
        if (reply->error() == QNetworkReply::ProxyAuthenticationRequiredError) {
            throw TransportError(Tr::tr("The proxy asks for a name and a password."));
        }
    }
    // Qt tells an answer that does not unpack, or unpacks to far too much, like an unusual status.
    const bool isWhole =
        reply->error() == QNetworkReply::NoError || (status >= kFirstErrorStatus && isStatusOnly(reply->error()));
    if (status == 0 || !isWhole) {
        throw TransportError(brokenOff(*reply, status));
    }
    if (status >= kFirstRedirectStatus && status < kFirstErrorStatus && !target.isEmpty()) {
        const QUrl resolved = state->request.url.resolved(target);
        if (!state->asGet && status >= kTemporaryRedirect) {
            throw TransportError(movedTo(resolved));
        }
        state->asGet = true;
        co_return resolved;
    }
    take(*reply, state->answer);
    co_return std::nullopt;
}

} // namespace quorvane
