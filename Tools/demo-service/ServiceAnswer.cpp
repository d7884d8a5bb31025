#include "demo-service/ServiceAnswer.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace quorvane {

HttpAnswer errorAnswer(int status, const QString &message)
{
    const QJsonObject error{{u"message"_s, message}, {u"code"_s, status}};
    const QJsonObject body{{u"error"_s, error}};
    return HttpAnswer::json(status, QJsonDocument(body).toJson(QJsonDocument::Compact));
}

QJsonObject pictureAnswer(const PictureOrder &order, const QString &base64)
{
    if (order.service != PictureOrder::Service::Gemini) {
        const QJsonObject picture{{u"b64_json"_s, base64}, {u"revised_prompt"_s, order.prompt}};
        return {{u"created"_s, 1700000000},
                {u"data"_s, QJsonArray{picture}},
                {u"usage"_s, QJsonObject{{u"total_tokens"_s, 1234}}}};
    }
    const QJsonObject text{{u"text"_s, u"Here is your picture."_s}};
    const QJsonObject inlineData{{u"mimeType"_s, u"image/png"_s}, {u"data"_s, base64}};
    const QJsonObject picture{{u"inlineData"_s, inlineData}};
    const QJsonObject content{{u"role"_s, u"model"_s}, {u"parts"_s, QJsonArray{text, picture}}};
    const QJsonObject candidate{{u"content"_s, content}, {u"finishReason"_s, u"STOP"_s}, {u"index"_s, 0}};
    return {{u"candidates"_s, QJsonArray{candidate}},
            {u"modelVersion"_s, order.model},
            {u"usageMetadata"_s, QJsonObject{{u"totalTokenCount"_s, 1234}}}};
}

} // namespace quorvane
