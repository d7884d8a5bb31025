#include "Unit/Upscaling/UpscalingTestSupport.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(SuperResolutionModelUnimplemented, aBuildWithoutTheEngineReportsAMissingModel)
{
    const HomeWithModel home("nearest");
    EXPECT_EQ(text(upscale(encoded(positions(4, 4))).error),
              "Invalid response: RealESRGAN model not found in app bundle");
}

} // namespace quorvane
