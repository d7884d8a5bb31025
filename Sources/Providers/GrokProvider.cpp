#include "Providers/GrokProvider.h"

namespace quorvane {

GrokProvider::GrokProvider(HttpClient *http)
    : m_name(QStringLiteral("Grok"))
    , m_id(QStringLiteral("grok"))
    , m_models{{QStringLiteral("grok-imagine-image"), QStringLiteral("Imagine")},
               {QStringLiteral("grok-imagine-image-pro"), QStringLiteral("Imagine Pro")}}
    , m_http(http)
{
}

ServiceRequest grokRequest(const QString &prompt, const QString &apiKey, const QString &model)
{
    return {kGrokService,
            QStringLiteral("/v1/images/generations"),
            {"Authorization", "Bearer " + apiKey.toUtf8()},
            {{QStringLiteral("model"), model},
             {QStringLiteral("prompt"), prompt},
             {QStringLiteral("response_format"), QStringLiteral("b64_json")},
             {QStringLiteral("n"), 1},
             {QStringLiteral("aspect_ratio"), QStringLiteral("16:9")}},
            std::chrono::seconds(120)};
}

AnswerFormat grokAnswer()
{
    constexpr auto pictureIn = [](const QJsonObject &answer) {
        auto picture = firstDataEntry(answer, QStringLiteral("jpg"));
        if (picture) {
            picture->mayBeDataAddress = true;
        }
        return picture;
    };
    return {.pictureIn = pictureIn,
            .undecodable = QCoreApplication::translate("ServiceRequest", "Failed to decode base64 image")};
}

QCoro::Task<GeneratedImage> GrokProvider::generate(QString prompt, QString apiKey, QString model,
                                                   bool /*wants4K*/) const
{
    return requestImage(m_http, grokRequest(prompt, apiKey, model), grokAnswer());
}

} // namespace quorvane
