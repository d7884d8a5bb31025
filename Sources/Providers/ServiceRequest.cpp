#include "Providers/ServiceRequest.h"

#include "Platform/Threads/Worker.h"
#include "Providers/AnswerDocument.h"
#include "Providers/Base64.h"
#include "Providers/ProviderError.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ServiceRequest)
};

QString baseAddress(const Service &service)
{
    QString address = qEnvironmentVariable(service.addressVariable);
    if (address.isEmpty()) {
        return QLatin1String(service.baseAddress);
    }
    while (address.endsWith('/'_L1)) {
        address.chop(1);
    }
    return address;
}

// A line break in a header would begin a header of its own.
bool canBeHeader(const QByteArray &value)
{
    constexpr unsigned char kFirstPrintable = 0x20;
    constexpr unsigned char kDelete = 0x7f;
    return std::all_of(value.begin(), value.end(), [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return byte >= kFirstPrintable && byte != kDelete;
    });
}

QString withoutSecret(QString words, const QByteArray &secret)
{
    // Keys are much longer; what is as short as this may be any word.
    constexpr qsizetype kShortestKey = 8;
    return secret.size() < kShortestKey ? words : words.replace(QString::fromUtf8(secret), u"…"_s);
}

QByteArrayView withoutDataAddress(QByteArrayView text)
{
    const qsizetype comma = text.indexOf(',');
    return comma >= 0 && text.first(comma).contains("base64") ? text.sliced(comma + 1) : text;
}

} // namespace

Result<> checkAddress(const Service &service)
{
    if (isAllowedAddress(QUrl(baseAddress(service), QUrl::StrictMode))) {
        return kDone;
    }
    return Failure{
        Tr::tr("%1 must be an https address, or http on this machine.").arg(QLatin1String(service.addressVariable))};
}

EncodedImage imageFromAnswer(const QByteArray &answer, const AnswerFormat &format)
{
    // 1. The answer is a JSON object.
    const std::optional<AnswerDocument> document = AnswerDocument::parse(answer);
    if (!document) {
        throw ProviderError::invalidResponse(format.notAnObject);
    }
    // 2. An error object with a text goes to the user in the service's own words; any other "error" is ignored.
    const QJsonValue message = document->object().value("error"_L1).toObject().value("message"_L1);
    if (message.isString()) {
        QByteArray storage;
        const QString words = QString::fromUtf8(document->textOf(message, &storage));
        throw ProviderError::apiError(format.apiError.arg(withoutSecret(words, format.secret)));
    }
    // 3. Walk to the base64 text.
    const std::optional<PictureInAnswer> picture = format.pictureIn(document->object());
    if (!picture) {
        throw ProviderError::invalidResponse(format.noImage);
    }
    // 4. Decode it.
    QByteArray storage;
    QByteArrayView text = document->textOf(picture->base64, &storage);
    if (picture->mayBeDataAddress) {
        text = withoutDataAddress(text);
    }
    std::optional<QByteArray> bytes = decodeBase64(text);
    if (!bytes) {
        throw ProviderError::invalidResponse(format.undecodable);
    }
    // 5. What kind of picture it is.
    QString extension = picture->extension;
    if (picture->mimeType.isString()) {
        extension = document->textOf(picture->mimeType, &storage).contains("png") ? u"png"_s : u"jpg"_s;
    }
    return {std::move(*bytes), std::move(extension)};
}

QUrl requestUrl(const ServiceRequest &request)
{
    return QUrl(baseAddress(request.service) + request.path, QUrl::StrictMode);
}

QCoro::Task<EncodedImage> requestImage(HttpClient *http, ServiceRequest request, AnswerFormat format)
{
    // 1. The address.
    if (const Result<> address = checkAddress(request.service); !address) {
        throw ProviderError::networkError(address.failure().words);
    }
    const QUrl url = requestUrl(request);
    if (!url.isValid()) {
        throw ProviderError::invalidResponse(Tr::tr("Invalid URL"));
    }
    // 2. The request. A body with a picture in it has many megabytes, so it is written on a worker.
    if (!canBeHeader(request.keyHeader.value)) {
        throw ProviderError::networkError(
            Tr::tr("The stored API key has a character that cannot be sent. Save the key again."));
    }
    format.secret = request.keyHeader.value.mid(request.keyHeader.value.lastIndexOf(' ') + 1);
    auto serialise = [body = std::move(request.body)] { return QJsonDocument(body).toJson(QJsonDocument::Compact); };
    QByteArray body = co_await onWorker(std::move(serialise));
    HttpClient::Request httpRequest{url,
                                    "application/json",
                                    std::move(request.keyHeader),
                                    std::move(body),
                                    request.silenceLimit,
                                    std::move(request.stop)};

    // 3. Send it.
    QByteArray answer;
    try {
        answer = co_await http->post(std::move(httpRequest));
    } catch (const TransportError &error) {
        throw ProviderError::networkError(error.words());
    }
    // 4. Read the answer.
    auto read = [answer = std::move(answer), format = std::move(format)]() mutable {
        const QByteArray bytes = std::move(answer);
        return imageFromAnswer(bytes, format);
    };
    co_return co_await onWorker(std::move(read));
}

QJsonArray objectsIn(const QJsonObject &object, QLatin1String key)
{
    const QJsonArray list = object.value(key).toArray();
    const bool objectsOnly =
        std::all_of(list.begin(), list.end(), [](const QJsonValue &value) { return value.isObject(); });
    return objectsOnly ? list : QJsonArray();
}

std::optional<PictureInAnswer> firstDataEntry(const QJsonObject &answer, const QString &extension)
{
    const QJsonValue text = objectsIn(answer, "data"_L1).first().toObject().value("b64_json"_L1);
    if (!text.isString()) {
        return std::nullopt;
    }
    return PictureInAnswer{.base64 = text, .extension = extension};
}

} // namespace quorvane
