#include "demo-service/PictureOrder.h"

#include "demo-service/ServiceAnswer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kUpscaledWidth = 3840;

/// Ends the reading of a request with this answer.
struct Refusal
{
    HttpAnswer answer;
};

[[noreturn]] void refuse(int status, const QString &message)
{
    throw Refusal{errorAnswer(status, message)};
}

QString textField(const QJsonObject &object, const QString &name)
{
    if (!object.value(name).isString()) {
        refuse(400, u"Missing or malformed field: '%1'."_s.arg(name));
    }
    return object.value(name).toString();
}

QJsonObject readBody(const HttpRequest &request)
{
    if (request.method != "POST") {
        refuse(405, u"This address takes POST only."_s);
    }
    if (request.header("Content-Type").split(';').first().trimmed().toLower() != "application/json") {
        refuse(415, u"The content type must be application/json."_s);
    }
    const QJsonDocument document = QJsonDocument::fromJson(request.body);
    if (!document.isObject()) {
        refuse(400, u"The body is not a JSON object."_s);
    }
    return document.object();
}

/// Any key will do, except the ones that pretend to be wrong.
void checkKey(const QByteArray &key)
{
    if (key.isEmpty()) {
        refuse(401, u"No API key was given."_s);
    }
    if (key.startsWith("invalid")) {
        refuse(401, u"Incorrect API key provided."_s);
    }
}

void checkBearer(const HttpRequest &request)
{
    const QByteArray authorization = request.header("Authorization");
    checkKey(authorization.startsWith("Bearer ") ? authorization.mid(7) : QByteArray());
}

/// The services refuse fields they do not know, and so a client's slip shows here too.
void checkNoOtherFields(const QJsonObject &body, const QStringList &known)
{
    for (const QString &name : body.keys()) {
        if (!known.contains(name)) {
            refuse(400, u"Unknown parameter: '%1'."_s.arg(name));
        }
    }
}

QSize geminiSize(const QJsonObject &imageConfig)
{
    const QString scale = imageConfig.value(u"imageSize"_s).toString(u"1K"_s);
    const QString shape = imageConfig.value(u"aspectRatio"_s).toString(u"16:9"_s);
    const int width = scale == u"4K"_s ? 3840 : scale == u"2K"_s ? 1920 : scale == u"1K"_s ? 1280 : 0;
    const QStringList sides = shape.split(u':');
    const int across = sides.value(0).toInt();
    const int down = sides.value(1).toInt();
    if (width == 0 || sides.size() != 2 || across < 1 || across > 21 || down < 1 || down > 21) {
        refuse(400, u"Unsupported imageConfig."_s);
    }
    return across >= down ? QSize(width, width * down / across) : QSize(width * across / down, width);
}

QImage geminiOriginal(const QJsonObject &part)
{
    const QJsonObject inlineData = part.value(u"inlineData"_s).toObject();
    const QString mimeType = textField(inlineData, u"mimeType"_s);
    const auto decoded = QByteArray::fromBase64Encoding(textField(inlineData, u"data"_s).toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    const QImage image = decoded ? QImage::fromData(decoded.decoded) : QImage();
    if (!mimeType.startsWith(u"image/"_s) || image.isNull()) {
        refuse(400, u"Unable to process input image."_s);
    }
    return image;
}

PictureOrder readGemini(const HttpRequest &request, const QString &model)
{
    const QJsonObject body = readBody(request);
    checkKey(request.header("x-goog-api-key"));
    checkNoOtherFields(body, {u"contents"_s, u"generationConfig"_s});

    const QJsonArray parts = body.value(u"contents"_s).toArray().first().toObject().value(u"parts"_s).toArray();
    if (parts.isEmpty()) {
        refuse(400, u"contents is not specified"_s);
    }
    const QJsonObject imageConfig = body.value(u"generationConfig"_s).toObject().value(u"imageConfig"_s).toObject();
    PictureOrder order{PictureOrder::Service::Gemini, model, textField(parts.first().toObject(), u"text"_s),
                       geminiSize(imageConfig), QImage()};
    for (const QJsonValue &part : parts) {
        if (part.toObject().contains(u"inlineData"_s)) {
            order.original = geminiOriginal(part.toObject());
            order.size = order.original.size().scaled(kUpscaledWidth, kUpscaledWidth * 16, Qt::KeepAspectRatio);
            break;
        }
    }
    return order;
}

PictureOrder readGrok(const QJsonObject &body)
{
    checkNoOtherFields(body, {u"model"_s, u"prompt"_s, u"n"_s, u"response_format"_s, u"aspect_ratio"_s});
    if (body.value(u"n"_s) != QJsonValue(1)) {
        refuse(400, u"n must be the number 1."_s);
    }
    if (textField(body, u"response_format"_s) != u"b64_json"_s || textField(body, u"aspect_ratio"_s) != u"16:9"_s) {
        refuse(400, u"Only b64_json answers of 16:9 are made here."_s);
    }
    return {PictureOrder::Service::Grok, textField(body, u"model"_s), textField(body, u"prompt"_s), QSize(1408, 768),
            QImage()};
}

PictureOrder readOpenAI(const QJsonObject &body)
{
    checkNoOtherFields(
        body, {u"model"_s, u"prompt"_s, u"size"_s, u"quality"_s, u"output_format"_s, u"background"_s, u"moderation"_s});
    if (textField(body, u"output_format"_s) != u"png"_s) {
        refuse(400, u"Only png is made here."_s);
    }
    const QString model = textField(body, u"model"_s);
    const QString size = textField(body, u"size"_s);
    static const QRegularExpression shape(u"\\A([1-9][0-9]{2,3})x([1-9][0-9]{2,3})\\z"_s);
    const QRegularExpressionMatch match = shape.match(size);
    const QStringList olderSizes{u"1024x1024"_s, u"1536x1024"_s, u"1024x1536"_s};
    const QSize pixels(match.captured(1).toInt(), match.captured(2).toInt());
    if (pixels.isEmpty() || pixels.width() > 3840 || pixels.height() > 3840 ||
        (model != u"gpt-image-2"_s && !olderSizes.contains(size))) {
        refuse(400, u"Invalid size '%1' for this model."_s.arg(size));
    }
    return {PictureOrder::Service::OpenAI, model, textField(body, u"prompt"_s), pixels, QImage()};
}

PictureOrder route(const HttpRequest &request)
{
    static const QRegularExpression gemini(u"\\A/v1beta/models/([^/:]+):generateContent\\z"_s);
    const QRegularExpressionMatch match = gemini.match(QString::fromLatin1(request.path));
    if (match.hasMatch()) {
        return readGemini(request, match.captured(1));
    }
    if (request.path != "/v1/images/generations") {
        refuse(404, u"There is nothing at this address."_s);
    }
    const QJsonObject body = readBody(request);
    checkBearer(request);
    return textField(body, u"model"_s).startsWith(u"grok"_s) ? readGrok(body) : readOpenAI(body);
}

} // namespace

std::variant<PictureOrder, HttpAnswer> readOrder(const HttpRequest &request)
{
    try {
        return route(request);
    } catch (const Refusal &refusal) {
        return refusal.answer;
    }
}

} // namespace quorvane
