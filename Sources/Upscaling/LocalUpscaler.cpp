#include "Upscaling/LocalUpscaler.h"

#include "Providers/ProviderError.h"

namespace quorvane {

QCoro::Task<UpscaledImage> localUpscaleImage(QByteArray /*encoded*/, std::stop_token /*stop*/,
                                             std::function<void(UpscaleProgress)> /*onProgress*/)
{
    throw ProviderError::invalidResponse(QStringLiteral("RealESRGAN model not found in app bundle"));
    co_return UpscaledImage();
}

} // namespace quorvane
