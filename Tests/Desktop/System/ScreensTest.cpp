#include "Desktop/System/ScreensFixture.h"

#include "Platform/System/Screens.h"

namespace quorvane {

TEST(Screens, aProgramWithoutWindowsHasNone)
{
    EXPECT_EQ(makeScreens(), nullptr);
}

} // namespace quorvane
