#pragma once

#include "Platform/Failure.h"
#include "Platform/Network/HttpClient.h"
#include "Providers/EncodedImage.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <chrono>
#include <optional>
#include <stop_token>

/// The request and the answer that all image services share. A service adds an address, a body, a time-out and the way
/// from the answer's top level to the picture.
namespace quorvane {

using namespace Qt::StringLiterals;

/// Where a service lies, and what may move it elsewhere.
struct Service
{
    const char *addressVariable; ///< Environment variable with another base address.
    const char *baseAddress;     ///< Without a slash at the end.
};

/// Whether the service's base address may be used. Asked before a key is read: none is looked up for an address that it
/// may not go to.
[[nodiscard]] Result<> checkAddress(const Service &service);

/// One request for a picture: a POST of JSON, which may cost the user money and is therefore sent once. Any thread may
/// make one; nothing happens before requestImage().
struct ServiceRequest
{
    Service service;
    QString path;                      ///< Appended to the base address as it stands; begins with a slash.
    HttpClient::Header keyHeader;      ///< The service's header with the API key, which goes nowhere else.
    QJsonObject body;                  ///< Sent compact, as application/json.
    std::chrono::seconds silenceLimit; ///< How long no byte may move.
    std::stop_token stop{};            ///< Ends the request when nobody wants its answer any more.
};

/// Where the picture stands in an answer.
struct PictureInAnswer
{
    QJsonValue base64;             ///< A text.
    QString extension{};           ///< What the service always sends, or empty where mimeType says it.
    QJsonValue mimeType{};         ///< A text that says "png" somewhere, or the picture is a "jpg".
    bool mayBeDataAddress = false; ///< The text may begin with "data:…base64,".
};

/// How an answer is read: the texts and the way to the picture that differ from service to service. The texts are what
/// the user reads when there is none; each becomes a ProviderError.
struct AnswerFormat
{
    std::optional<PictureInAnswer> (*pictureIn)(const QJsonObject &answer); ///< Nothing when the way breaks off.
    /// The answer is no JSON, or no object at its top level.
    QString notAnObject = QCoreApplication::translate("ServiceRequest", "Failed to parse response");
    /// pictureIn found no way, or no text at its end, and the service says nothing of an error.
    QString noImage = QCoreApplication::translate("ServiceRequest", "No image in response");
    /// The text at the end of the way is not base64.
    QString undecodable = QCoreApplication::translate("ServiceRequest", "No image in response");
    QString apiError = u"%1"_s; ///< Around the service's own words, which are %1.
    QByteArray secret{};        ///< The API key, which is shown to nobody when the service quotes it. May be empty.
};

/// The picture in an answer's body, or a ProviderError. Total: any bytes give one or the other. Any thread.
[[nodiscard]] EncodedImage imageFromAnswer(const QByteArray &answer, const AnswerFormat &format);

/// Where the request goes; invalid when its parts do not form an address.
[[nodiscard]] QUrl requestUrl(const ServiceRequest &request);

/// Sends the request and takes the picture from the answer, whatever the HTTP status. Throws ProviderError. Comes back
/// on the calling thread.
[[nodiscard]] QCoro::Task<EncodedImage> requestImage(HttpClient *http, ServiceRequest request, AnswerFormat format);

/// The list under key when it is a non-empty list of objects only; else empty.
[[nodiscard]] QJsonArray objectsIn(const QJsonObject &object, QLatin1String key);

/// The picture at "data"[0]."b64_json", as Grok and OpenAI answer; extension as given.
[[nodiscard]] std::optional<PictureInAnswer> firstDataEntry(const QJsonObject &answer, const QString &extension);

} // namespace quorvane
