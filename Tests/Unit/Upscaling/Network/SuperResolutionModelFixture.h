#pragma once

#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Image/TilePixels.h"
#include "Upscaling/Image/UpscaleErrors.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorvane {

inline std::vector<float> modelTile()
{
    std::vector<float> planes(std::size_t(3) * 512 * 512);
    planesFromTile(positions(512, 512).convertToFormat(QImage::Format_RGBX8888), planes);
    return planes;
}

} // namespace quorvane
