#include "Providers/GrokProvider.h"

using namespace Qt::StringLiterals;

namespace quorvane {

GrokProvider::GrokProvider(HttpClient *http)
    : m_name(u"Grok"_s)
    , m_id(u"grok"_s)
    , m_models{{u"grok-imagine-image"_s, u"Imagine"_s}, {u"grok-imagine-image-pro"_s, u"Imagine Pro"_s}}
    , m_http(http)
{
}

ServiceRequest grokRequest(const QString &prompt, const QString &apiKey, const QString &model)
{
    return {kGrokService,
            u"/v1/images/generations"_s,
            {"Authorization", "Bearer " + apiKey.toUtf8()},
            {{u"model"_s, model},
             {u"prompt"_s, prompt},
             {u"response_format"_s, u"b64_json"_s},
             {u"n"_s, 1},
             {u"aspect_ratio"_s, u"16:9"_s}},
            std::chrono::seconds(120)};
}

AnswerFormat grokAnswer()
{
    constexpr auto pictureIn = [](const QJsonObject &answer) {
        auto picture = firstDataEntry(answer, u"jpg"_s);
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
