#include "Providers/OpenAIProvider.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QJsonObject body(const ImageOrder &order, bool in4K)
{
    QJsonObject object{
        {u"model"_s, order.model}, {u"prompt"_s, order.prompt},    {u"size"_s, in4K ? u"3840x2160"_s : u"1536x1024"_s},
        {u"quality"_s, u"high"_s}, {u"output_format"_s, u"png"_s},
    };
    // The newest model refuses these two; the older ones want them.
    if (order.model != "gpt-image-2"_L1) {
        object.insert(u"background"_s, u"opaque"_s);
        object.insert(u"moderation"_s, u"low"_s);
    }
    return object;
}

std::optional<PictureInAnswer> pictureIn(const QJsonObject &answer)
{
    return firstDataEntry(answer, u"png"_s);
}

} // namespace

ImageService OpenAIProvider::service()
{
    return {.id = u"openai"_s,
            .name = u"OpenAI"_s,
            .keyTitle = u"OpenAI"_s,
            .keyUse = QCoreApplication::translate("ImageService", "Available as an override in Advanced settings."),
            .models = {{{u"gpt-image-2"_s, u"GPT Image 2"_s}, Makes4K::WhenAsked},
                       {{u"gpt-image-1"_s, u"GPT Image 1"_s}},
                       {{u"gpt-image-1.5"_s, u"GPT Image 1.5"_s}},
                       {{u"gpt-image-1-mini"_s, u"GPT Image 1 Mini"_s}}},
            .address = kOpenAIService,
            .path = u"/v1/images/generations"_s,
            .keyHeader = "Authorization",
            .keyPrefix = "Bearer ",
            .silenceLimit = std::chrono::seconds(180),
            .silenceLimitIn4K = std::chrono::seconds(600),
            .body = body,
            .answer = {.pictureIn = pictureIn}};
}

} // namespace quorvane
