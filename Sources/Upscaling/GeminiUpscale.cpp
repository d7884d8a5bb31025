#include "Upscaling/GeminiUpscale.h"

#include "Platform/Threads/Worker.h"
#include "Providers/GeminiProvider.h"

#include <QCoreApplication>
#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(GeminiUpscale)
};

} // namespace

ServiceRequest upscaleRequest(const QByteArray &image, const QString &ext, const QString &geminiApiKey)
{
    const QString mimeType = ext == "png"_L1 ? u"image/png"_s : u"image/jpeg"_s;
    const QJsonObject textPart{
        {u"text"_s, u"Upscale this image to 4K resolution while preserving all details. Do not change the content."_s}};
    const QJsonObject inlineData{{u"mimeType"_s, mimeType}, {u"data"_s, QString::fromLatin1(image.toBase64())}};
    const QJsonObject imagePart{{u"inlineData"_s, inlineData}};
    const QJsonObject content{{u"parts"_s, QJsonArray{textPart, imagePart}}};
    const QJsonObject imageConfig{{u"imageSize"_s, u"4K"_s}};
    const QJsonObject generationConfig{{u"responseModalities"_s, QJsonArray{u"IMAGE"_s}},
                                       {u"imageConfig"_s, imageConfig}};
    return {kGeminiService,
            u"/v1beta/models/gemini-3-pro-image-preview:generateContent"_s,
            {"x-goog-api-key", geminiApiKey.toUtf8()},
            {{u"contents"_s, QJsonArray{content}}, {u"generationConfig"_s, generationConfig}},
            std::chrono::seconds(120)};
}

AnswerFormat upscaleAnswer()
{
    return {.pictureIn = firstInlineData,
            .notAnObject = Tr::tr("Failed to parse upscale response"),
            .noImage = Tr::tr("No image in upscale response"),
            .undecodable = Tr::tr("No image in upscale response"),
            .apiError = Tr::tr("Upscale failed: %1")};
}

QCoro::Task<EncodedImage> upscaleImage(HttpClient *http, QByteArray image, QString ext, QString geminiApiKey,
                                       std::stop_token stop)
{
    // A picture of many megabytes becomes text here, so the request is built on a worker.
    auto build = [image = std::move(image), ext, geminiApiKey] { return upscaleRequest(image, ext, geminiApiKey); };
    ServiceRequest request = co_await onWorker(std::move(build));
    request.stop = std::move(stop);
    AnswerFormat format = upscaleAnswer();
    co_return co_await requestImage(http, std::move(request), std::move(format));
}

} // namespace quorvane
