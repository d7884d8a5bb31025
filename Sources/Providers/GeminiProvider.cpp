#include "Providers/GeminiProvider.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace quorvane {

GeminiProvider::GeminiProvider(HttpClient *http)
    : m_name(u"Gemini"_s)
    , m_id(u"gemini"_s)
    , m_models{{u"gemini-2.5-flash-image"_s, u"2.5 Flash Image"_s}, {u"gemini-3-pro-image-preview"_s, u"3 Pro Image"_s}}
    , m_http(http)
{
}

ServiceRequest geminiRequest(const QString &prompt, const QString &apiKey, const QString &model)
{
    const QJsonObject textPart{{u"text"_s, prompt}};
    const QJsonObject content{{u"parts"_s, QJsonArray{textPart}}};
    const QJsonObject imageConfig{{u"imageSize"_s, u"4K"_s}, {u"aspectRatio"_s, u"16:9"_s}};
    const QJsonObject generationConfig{{u"responseModalities"_s, QJsonArray{u"IMAGE"_s}},
                                       {u"imageConfig"_s, imageConfig}};
    return {kGeminiService,
            u"/v1beta/models/"_s + model + u":generateContent"_s,
            {"x-goog-api-key", apiKey.toUtf8()},
            {{u"contents"_s, QJsonArray{content}}, {u"generationConfig"_s, generationConfig}},
            std::chrono::seconds(120)};
}

AnswerFormat geminiAnswer()
{
    return {.pictureIn = firstInlineData};
}

QCoro::Task<GeneratedImage> GeminiProvider::generate(QString prompt, QString apiKey, QString model,
                                                     bool /*wants4K*/) const
{
    return requestImage(m_http, geminiRequest(prompt, apiKey, model), geminiAnswer());
}

} // namespace quorvane
