#include "Providers/OpenAIProvider.h"

using namespace Qt::StringLiterals;

namespace quorvane {

OpenAIProvider::OpenAIProvider(HttpClient *http)
    : m_name(u"OpenAI"_s)
    , m_id(u"openai"_s)
    , m_models{{u"gpt-image-2"_s, u"GPT Image 2"_s},
               {u"gpt-image-1"_s, u"GPT Image 1"_s},
               {u"gpt-image-1.5"_s, u"GPT Image 1.5"_s},
               {u"gpt-image-1-mini"_s, u"GPT Image 1 Mini"_s}}
    , m_http(http)
{
}

ServiceRequest openAIRequest(const QString &prompt, const QString &apiKey, const QString &model, bool wants4K)
{
    const bool isImage2 = model == "gpt-image-2"_L1;
    const bool native4K = wants4K && isImage2;
    QJsonObject body{
        {u"model"_s, model},
        {u"prompt"_s, prompt},
        {u"size"_s, native4K ? u"3840x2160"_s : u"1536x1024"_s},
        {u"quality"_s, u"high"_s},
        {u"output_format"_s, u"png"_s},
    };
    // The newest model refuses these two; the older ones want them.
    if (!isImage2) {
        body.insert(u"background"_s, u"opaque"_s);
        body.insert(u"moderation"_s, u"low"_s);
    }
    return {kOpenAIService,
            u"/v1/images/generations"_s,
            {"Authorization", "Bearer " + apiKey.toUtf8()},
            body,
            native4K ? std::chrono::seconds(600) : std::chrono::seconds(180)};
}

AnswerFormat openAIAnswer()
{
    constexpr auto pictureIn = [](const QJsonObject &answer) { return firstDataEntry(answer, u"png"_s); };
    return {.pictureIn = pictureIn};
}

QCoro::Task<GeneratedImage> OpenAIProvider::generate(QString prompt, QString apiKey, QString model, bool wants4K) const
{
    return requestImage(m_http, openAIRequest(prompt, apiKey, model, wants4K), openAIAnswer());
}

} // namespace quorvane
