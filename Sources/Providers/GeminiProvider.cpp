#include "Providers/GeminiProvider.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QJsonObject body(const ImageOrder &order, bool /*in4K*/)
{
    const QJsonObject textPart{{u"text"_s, order.prompt}};
    const QJsonObject content{{u"parts"_s, QJsonArray{textPart}}};
    const QJsonObject imageConfig{{u"imageSize"_s, u"4K"_s}, {u"aspectRatio"_s, u"16:9"_s}};
    const QJsonObject generationConfig{{u"responseModalities"_s, QJsonArray{u"IMAGE"_s}},
                                       {u"imageConfig"_s, imageConfig}};
    return {{u"contents"_s, QJsonArray{content}}, {u"generationConfig"_s, generationConfig}};
}

} // namespace

ImageService GeminiProvider::service()
{
    return {.id = kGeminiId,
            .name = u"Gemini"_s,
            .keyTitle = u"Gemini"_s,
            .keyUse = QCoreApplication::translate("ImageService", "Used for default generation and 4K upscaling."),
            .models = {{{u"gemini-2.5-flash-image"_s, u"2.5 Flash Image"_s}, Makes4K::Always},
                       {{u"gemini-3-pro-image-preview"_s, u"3 Pro Image"_s}, Makes4K::Always}},
            .address = kGeminiService,
            .path = u"/v1beta/models/%1:generateContent"_s,
            .keyHeader = "x-goog-api-key",
            .keyPrefix = {},
            .body = body,
            .answer = {.pictureIn = firstInlineData}};
}

std::optional<PictureInAnswer> firstInlineData(const QJsonObject &answer)
{
    const QJsonObject content = objectsIn(answer, "candidates"_L1).first().toObject().value("content"_L1).toObject();
    const QJsonArray parts = objectsIn(content, "parts"_L1);
    const auto part = std::find_if(parts.begin(), parts.end(),
                                   [](const QJsonValue &value) { return value.toObject().contains("inlineData"_L1); });
    if (part == parts.end()) {
        return std::nullopt;
    }
    const QJsonObject inlineData = part->toObject().value("inlineData"_L1).toObject();
    const QJsonValue text = inlineData.value("data"_L1);
    const QJsonValue mimeType = inlineData.value("mimeType"_L1);
    if (!text.isString() || !mimeType.isString()) {
        return std::nullopt;
    }
    return PictureInAnswer{.base64 = text, .mimeType = mimeType};
}

} // namespace quorvane
