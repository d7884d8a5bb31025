#include "Providers/GrokProvider.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QJsonObject body(const ImageOrder &order, bool /*in4K*/)
{
    return {{u"model"_s, order.model},
            {u"prompt"_s, order.prompt},
            {u"response_format"_s, u"b64_json"_s},
            {u"n"_s, 1},
            {u"aspect_ratio"_s, u"16:9"_s}};
}

std::optional<PictureInAnswer> pictureIn(const QJsonObject &answer)
{
    std::optional<PictureInAnswer> picture = firstDataEntry(answer, u"jpg"_s);
    if (picture) {
        picture->mayBeDataAddress = true;
    }
    return picture;
}

} // namespace

ImageService GrokProvider::service()
{
    return {.id = u"grok"_s,
            .name = u"Grok"_s,
            .keyTitle = u"Grok (xAI)"_s,
            .keyUse = QCoreApplication::translate("ImageService", "Used when NSFW is enabled."),
            .takesNsfw = true,
            .models = {{{u"grok-imagine-image"_s, u"Imagine"_s}}, {{u"grok-imagine-image-pro"_s, u"Imagine Pro"_s}}},
            .address = kGrokService,
            .path = u"/v1/images/generations"_s,
            .keyHeader = "Authorization",
            .keyPrefix = "Bearer ",
            .body = body,
            .answer = {.pictureIn = pictureIn,
                       .undecodable = QCoreApplication::translate("ServiceRequest", "Failed to decode base64 image")}};
}

} // namespace quorvane
