#pragma once

#include "Upscaling/UpscaledImage.h"

#include <QCoroTask>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace quorvane {

/// How far an upscale is. Only goes forward.
struct UpscaleProgress
{
    int tilesDone;
    int tilesTotal;
    /// As the tiles so far took; nothing before the first one is done.
    std::optional<std::chrono::milliseconds> remaining;
};

[[nodiscard]] QCoro::Task<UpscaledImage> localUpscaleImage(QByteArray encoded, std::stop_token stop,
                                                           std::function<void(UpscaleProgress)> onProgress);

} // namespace quorvane
