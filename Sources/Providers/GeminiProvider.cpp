#include "Providers/GeminiProvider.h"

#include <QJsonArray>

namespace quorvane {

GeminiProvider::GeminiProvider(HttpClient *http)
    : m_name(QStringLiteral("Gemini"))
    , m_id(QStringLiteral("gemini"))
    , m_models{{QStringLiteral("gemini-2.5-flash-image"), QStringLiteral("2.5 Flash Image")},
               {QStringLiteral("gemini-3-pro-image-preview"), QStringLiteral("3 Pro Image")}}
    , m_http(http)
{
}

ServiceRequest geminiRequest(const QString &prompt, const QString &apiKey, const QString &model)
{
    const QJsonObject textPart{{QStringLiteral("text"), prompt}};
    const QJsonObject content{{QStringLiteral("parts"), QJsonArray{textPart}}};
    const QJsonObject imageConfig{{QStringLiteral("imageSize"), QStringLiteral("4K")},
                                  {QStringLiteral("aspectRatio"), QStringLiteral("16:9")}};
    const QJsonObject generationConfig{{QStringLiteral("responseModalities"), QJsonArray{QStringLiteral("IMAGE")}},
                                       {QStringLiteral("imageConfig"), imageConfig}};
    return {kGeminiService,
            QStringLiteral("/v1beta/models/") + model + QStringLiteral(":generateContent"),
            {"x-goog-api-key", apiKey.toUtf8()},
            {{QStringLiteral("contents"), QJsonArray{content}}, {QStringLiteral("generationConfig"), generationConfig}},
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
