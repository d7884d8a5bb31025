#include "Providers/OpenAIProvider.h"

namespace quorvane {

OpenAIProvider::OpenAIProvider(HttpClient *http)
    : m_name(QStringLiteral("OpenAI"))
    , m_id(QStringLiteral("openai"))
    , m_models{{QStringLiteral("gpt-image-2"), QStringLiteral("GPT Image 2")},
               {QStringLiteral("gpt-image-1"), QStringLiteral("GPT Image 1")},
               {QStringLiteral("gpt-image-1.5"), QStringLiteral("GPT Image 1.5")},
               {QStringLiteral("gpt-image-1-mini"), QStringLiteral("GPT Image 1 Mini")}}
    , m_http(http)
{
}

ServiceRequest openAIRequest(const QString &prompt, const QString &apiKey, const QString &model, bool wants4K)
{
    const bool isImage2 = model == QLatin1String("gpt-image-2");
    const bool native4K = wants4K && isImage2;
    QJsonObject body{
        {QStringLiteral("model"), model},
        {QStringLiteral("prompt"), prompt},
        {QStringLiteral("size"), native4K ? QStringLiteral("3840x2160") : QStringLiteral("1536x1024")},
        {QStringLiteral("quality"), QStringLiteral("high")},
        {QStringLiteral("output_format"), QStringLiteral("png")},
    };
    // The newest model refuses these two; the older ones want them.
    if (!isImage2) {
        body.insert(QStringLiteral("background"), QStringLiteral("opaque"));
        body.insert(QStringLiteral("moderation"), QStringLiteral("low"));
    }
    return {kOpenAIService,
            QStringLiteral("/v1/images/generations"),
            {"Authorization", "Bearer " + apiKey.toUtf8()},
            body,
            native4K ? std::chrono::seconds(600) : std::chrono::seconds(180)};
}

AnswerFormat openAIAnswer()
{
    constexpr auto pictureIn = [](const QJsonObject &answer) { return firstDataEntry(answer, QStringLiteral("png")); };
    return {.pictureIn = pictureIn};
}

QCoro::Task<GeneratedImage> OpenAIProvider::generate(QString prompt, QString apiKey, QString model, bool wants4K) const
{
    return requestImage(m_http, openAIRequest(prompt, apiKey, model, wants4K), openAIAnswer());
}

} // namespace quorvane
