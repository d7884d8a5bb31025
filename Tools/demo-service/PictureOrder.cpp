#include "demo-service/PictureOrder.h"

#include "demo-service/ServiceAnswer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QStringList>

#include <utility>

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
        refuse(400, QStringLiteral("Missing or malformed field: '%1'.").arg(name));
    }
    return object.value(name).toString();
}

QJsonObject readBody(const HttpRequest &request)
{
    if (request.method != "POST") {
        refuse(405, QStringLiteral("This address takes POST only."));
    }
    if (request.header("Content-Type").split(';').first().trimmed().toLower() != "application/json") {
        refuse(415, QStringLiteral("The content type must be application/json."));
    }
    const QJsonDocument document = QJsonDocument::fromJson(request.body);
    if (!document.isObject()) {
        refuse(400, QStringLiteral("The body is not a JSON object."));
    }
    return document.object();
}

/// Any key will do, except the ones that pretend to be wrong.
void checkKey(const QByteArray &key)
{
    if (key.isEmpty()) {
        refuse(401, QStringLiteral("No API key was given."));
    }
    if (key.startsWith("invalid")) {
        refuse(401, QStringLiteral("Incorrect API key provided."));
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
            refuse(400, QStringLiteral("Unknown parameter: '%1'.").arg(name));
        }
    }
}

QSize geminiSize(const QJsonObject &imageConfig)
{
    const QString scale = imageConfig.value(QStringLiteral("imageSize")).toString(QStringLiteral("1K"));
    const QString shape = imageConfig.value(QStringLiteral("aspectRatio")).toString(QStringLiteral("16:9"));
    const int width = scale == QStringLiteral("4K")   ? 3840
                      : scale == QStringLiteral("2K") ? 1920
                      : scale == QStringLiteral("1K") ? 1280
                                                      : 0;
    const QStringList sides = shape.split(u':');
    const int across = sides.value(0).toInt();
    const int down = sides.value(1).toInt();
    if (width == 0 || sides.size() != 2 || across < 1 || across > 21 || down < 1 || down > 21) {
        refuse(400, QStringLiteral("Unsupported imageConfig."));
    }
    return across >= down ? QSize(width, width * down / across) : QSize(width * across / down, width);
}

QImage geminiOriginal(const QJsonObject &part)
{
    const QJsonObject inlineData = part.value(QStringLiteral("inlineData")).toObject();
    const QString mimeType = textField(inlineData, QStringLiteral("mimeType"));
    const auto decoded = QByteArray::fromBase64Encoding(textField(inlineData, QStringLiteral("data")).toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    const QImage image = decoded ? QImage::fromData(decoded.decoded) : QImage();
    if (!mimeType.startsWith(QStringLiteral("image/")) || image.isNull()) {
        refuse(400, QStringLiteral("Unable to process input image."));
    }
    return image;
}

PictureOrder readGemini(const HttpRequest &request, const QString &model)
{
    const QJsonObject body = readBody(request);
    checkKey(request.header("x-goog-api-key"));
    checkNoOtherFields(body, {QStringLiteral("contents"), QStringLiteral("generationConfig")});

    const QJsonArray parts =
        body.value(QStringLiteral("contents")).toArray().first().toObject().value(QStringLiteral("parts")).toArray();
    if (parts.isEmpty()) {
        refuse(400, QStringLiteral("contents is not specified"));
    }
    const QJsonObject imageConfig =
        body.value(QStringLiteral("generationConfig")).toObject().value(QStringLiteral("imageConfig")).toObject();
    PictureOrder order{PictureOrder::Service::Gemini, model,
                       textField(parts.first().toObject(), QStringLiteral("text")), geminiSize(imageConfig), QImage()};
    for (const QJsonValue &part : parts) {
        if (part.toObject().contains(QStringLiteral("inlineData"))) {
            order.original = geminiOriginal(part.toObject());
            order.size = order.original.size().scaled(kUpscaledWidth, kUpscaledWidth * 16, Qt::KeepAspectRatio);
            break;
        }
    }
    return order;
}

PictureOrder readGrok(const QJsonObject &body)
{
    checkNoOtherFields(body, {QStringLiteral("model"), QStringLiteral("prompt"), QStringLiteral("n"),
                              QStringLiteral("response_format"), QStringLiteral("aspect_ratio")});
    if (body.value(QStringLiteral("n")) != QJsonValue(1)) {
        refuse(400, QStringLiteral("n must be the number 1."));
    }
    if (textField(body, QStringLiteral("response_format")) != QStringLiteral("b64_json") ||
        textField(body, QStringLiteral("aspect_ratio")) != QStringLiteral("16:9")) {
        refuse(400, QStringLiteral("Only b64_json answers of 16:9 are made here."));
    }
    return {PictureOrder::Service::Grok, textField(body, QStringLiteral("model")),
            textField(body, QStringLiteral("prompt")), QSize(1408, 768), QImage()};
}

PictureOrder readOpenAI(const QJsonObject &body)
{
    checkNoOtherFields(body, {QStringLiteral("model"), QStringLiteral("prompt"), QStringLiteral("size"),
                              QStringLiteral("quality"), QStringLiteral("output_format"), QStringLiteral("background"),
                              QStringLiteral("moderation")});
    if (textField(body, QStringLiteral("output_format")) != QStringLiteral("png")) {
        refuse(400, QStringLiteral("Only png is made here."));
    }
    const QString model = textField(body, QStringLiteral("model"));
    const QString size = textField(body, QStringLiteral("size"));
    static const QRegularExpression shape(QStringLiteral("\\A([1-9][0-9]{2,3})x([1-9][0-9]{2,3})\\z"));
    const QRegularExpressionMatch match = shape.match(size);
    const QStringList olderSizes{QStringLiteral("1024x1024"), QStringLiteral("1536x1024"), QStringLiteral("1024x1536")};
    const QSize pixels(match.captured(1).toInt(), match.captured(2).toInt());
    if (pixels.isEmpty() || pixels.width() > 3840 || pixels.height() > 3840 ||
        (model != QStringLiteral("gpt-image-2") && !olderSizes.contains(size))) {
        refuse(400, QStringLiteral("Invalid size '%1' for this model.").arg(size));
    }
    return {PictureOrder::Service::OpenAI, model, textField(body, QStringLiteral("prompt")), pixels, QImage()};
}

PictureOrder route(const HttpRequest &request)
{
    static const QRegularExpression gemini(QStringLiteral("\\A/v1beta/models/([^/:]+):generateContent\\z"));
    const QRegularExpressionMatch match = gemini.match(QString::fromLatin1(request.path));
    if (match.hasMatch()) {
        return readGemini(request, match.captured(1));
    }
    if (request.path != "/v1/images/generations") {
        refuse(404, QStringLiteral("There is nothing at this address."));
    }
    const QJsonObject body = readBody(request);
    checkBearer(request);
    return textField(body, QStringLiteral("model")).startsWith(QStringLiteral("grok")) ? readGrok(body)
                                                                                       : readOpenAI(body);
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
