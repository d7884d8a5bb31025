#include "Manager/FileNames.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(FileNames, aPictureIsNamedByItsLocalSecond)
{
    const QDateTime now(QDate(2026, 1, 2), QTime(3, 4, 5, 678));
    EXPECT_EQ(wallpaperFileName(now, QStringLiteral("png")), QStringLiteral("wallpaper_2026-01-02_03-04-05.png"));
    EXPECT_EQ(wallpaperFileName(now.toUTC(), QStringLiteral("jpg")),
              QStringLiteral("wallpaper_2026-01-02_03-04-05.jpg"));
}

} // namespace quorvane
