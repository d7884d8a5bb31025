#include "demo-service/ServiceAnswer.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace quorvane {

HttpAnswer errorAnswer(int status, const QString &message)
{
    const QJsonObject error{{QStringLiteral("message"), message}, {QStringLiteral("code"), status}};
    const QJsonObject body{{QStringLiteral("error"), error}};
    return HttpAnswer::json(status, QJsonDocument(body).toJson(QJsonDocument::Compact));
}

QJsonObject pictureAnswer(const PictureOrder &order, const QString &base64)
{
    if (order.service != PictureOrder::Service::Gemini) {
        const QJsonObject picture{{QStringLiteral("b64_json"), base64},
                                  {QStringLiteral("revised_prompt"), order.prompt}};
        return {{QStringLiteral("created"), 1700000000},
                {QStringLiteral("data"), QJsonArray{picture}},
                {QStringLiteral("usage"), QJsonObject{{QStringLiteral("total_tokens"), 1234}}}};
    }
    const QJsonObject text{{QStringLiteral("text"), QStringLiteral("Here is your picture.")}};
    const QJsonObject inlineData{{QStringLiteral("mimeType"), QStringLiteral("image/png")},
                                 {QStringLiteral("data"), base64}};
    const QJsonObject picture{{QStringLiteral("inlineData"), inlineData}};
    const QJsonObject content{{QStringLiteral("role"), QStringLiteral("model")},
                              {QStringLiteral("parts"), QJsonArray{text, picture}}};
    const QJsonObject candidate{{QStringLiteral("content"), content},
                                {QStringLiteral("finishReason"), QStringLiteral("STOP")},
                                {QStringLiteral("index"), 0}};
    return {{QStringLiteral("candidates"), QJsonArray{candidate}},
            {QStringLiteral("modelVersion"), order.model},
            {QStringLiteral("usageMetadata"), QJsonObject{{QStringLiteral("totalTokenCount"), 1234}}}};
}

} // namespace quorvane
