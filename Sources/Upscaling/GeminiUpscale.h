#pragma once

#include "Providers/EncodedImage.h"
#include "Providers/ServiceRequest.h"

namespace quorvane {

/// Enlarges an encoded picture to 4K through the Gemini API. ext is the picture's extension without a dot: "png" goes
/// out as a PNG, everything else as a JPEG, whatever the bytes are. The model is always the same one, not the user's
/// choice for generation. Throws ProviderError, also when it is asked to stop, which ends the request. Comes back on
/// the calling thread.
[[nodiscard]] QCoro::Task<EncodedImage> upscaleImage(HttpClient *http, QByteArray image, QString ext,
                                                     QString geminiApiKey, std::stop_token stop = {});

/// The request that upscaleImage() sends.
[[nodiscard]] ServiceRequest upscaleRequest(const QByteArray &image, const QString &ext, const QString &geminiApiKey);

/// How it reads the answer.
[[nodiscard]] AnswerFormat upscaleAnswer();

} // namespace quorvane
