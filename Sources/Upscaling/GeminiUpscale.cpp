#include "Upscaling/GeminiUpscale.h"

#include "Platform/Threads/Worker.h"

#include <QCoreApplication>
#include <QJsonArray>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(GeminiUpscale)
};

} // namespace

ServiceRequest upscaleRequest(const QByteArray &image, const QString &ext, const QString &geminiApiKey)
{
    const QString mimeType = ext == QLatin1String("png") ? QStringLiteral("image/png") : QStringLiteral("image/jpeg");
    const QJsonObject textPart{
        {QStringLiteral("text"),
         QStringLiteral(
             "Upscale this image to 4K resolution while preserving all details. Do not change the content.")}};
    const QJsonObject inlineData{{QStringLiteral("mimeType"), mimeType},
                                 {QStringLiteral("data"), QString::fromLatin1(image.toBase64())}};
    const QJsonObject imagePart{{QStringLiteral("inlineData"), inlineData}};
    const QJsonObject content{{QStringLiteral("parts"), QJsonArray{textPart, imagePart}}};
    const QJsonObject imageConfig{{QStringLiteral("imageSize"), QStringLiteral("4K")}};
    const QJsonObject generationConfig{{QStringLiteral("responseModalities"), QJsonArray{QStringLiteral("IMAGE")}},
                                       {QStringLiteral("imageConfig"), imageConfig}};
    return {kGeminiService,
            QStringLiteral("/v1beta/models/gemini-3-pro-image-preview:generateContent"),
            {"x-goog-api-key", geminiApiKey.toUtf8()},
            {{QStringLiteral("contents"), QJsonArray{content}}, {QStringLiteral("generationConfig"), generationConfig}},
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

QCoro::Task<UpscaledImage> upscaleImage(HttpClient *http, QByteArray image, QString ext, QString geminiApiKey)
{
    // A picture of many megabytes becomes text here, so the request is built on a worker.
    auto build = [image = std::move(image), ext, geminiApiKey] { return upscaleRequest(image, ext, geminiApiKey); };
    ServiceRequest request = co_await onWorker(std::move(build));
    AnswerFormat format = upscaleAnswer();
    GeneratedImage result = co_await requestImage(http, std::move(request), std::move(format));
    co_return UpscaledImage{std::move(result.bytes), std::move(result.extension)};
}

} // namespace quorvane
