#pragma once

#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/TilePixels.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorvane {

using namespace Qt::StringLiterals;

constexpr std::chrono::minutes kPatience(2);
inline const QString kRealWorker = QStringLiteral(GPU_WORKER);
inline const QString kProcessor = u"CPUExecutionProvider"_s;
constexpr QSize kTile(512, 512);
constexpr std::size_t kResultSize = std::size_t(3) * 2048 * 2048;

inline std::vector<float> sampleTile()
{
    std::vector<float> planes(std::size_t(3) * 512 * 512);
    planesFromTile(positions(512, 512).convertToFormat(QImage::Format_RGBX8888), planes);
    return planes;
}

} // namespace quorvane
