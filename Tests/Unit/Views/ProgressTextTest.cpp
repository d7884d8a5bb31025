#include "Views/ProgressText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

using namespace std::chrono_literals;

TEST(ProgressText, itNamesTilesAndRoundsTheTimeUp)
{
    EXPECT_EQ(progressText(std::nullopt), QString());
    EXPECT_EQ(progressText(UpscaleProgress{0, 54, std::nullopt}), u"0 of 54 tiles"_s);
    EXPECT_EQ(progressText(UpscaleProgress{12, 54, 1ms}), u"12 of 54 tiles, 1 s left"_s);
    EXPECT_EQ(progressText(UpscaleProgress{12, 54, 59'000ms}), u"12 of 54 tiles, 59 s left"_s);
    EXPECT_EQ(progressText(UpscaleProgress{12, 54, 60'000ms}), u"12 of 54 tiles, about 1 min left"_s);
    EXPECT_EQ(progressText(UpscaleProgress{12, 54, 61'000ms}), u"12 of 54 tiles, about 2 min left"_s);
}

TEST(ProgressText, theShareIsNoneWithoutTiles)
{
    EXPECT_EQ(progressShare(std::nullopt), 0);
    EXPECT_EQ(progressShare(UpscaleProgress{0, 0, std::nullopt}), 0);
    EXPECT_EQ(progressShare(UpscaleProgress{1, 4, std::nullopt}), 0.25);
}

} // namespace quorvane
