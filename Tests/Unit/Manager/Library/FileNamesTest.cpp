#include "Manager/Library/FileNames.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(FileNames, aPictureIsNamedByItsLocalSecond)
{
    const QDateTime now(QDate(2026, 1, 2), QTime(3, 4, 5, 678));
    EXPECT_EQ(wallpaperFileName(now, u"png"_s), u"wallpaper_2026-01-02_03-04-05.png"_s);
    EXPECT_EQ(wallpaperFileName(now.toUTC(), u"jpg"_s), u"wallpaper_2026-01-02_03-04-05.jpg"_s);
}

TEST(FileNames, areTheSameInEveryLanguage)
{
    const QDateTime now(QDate(2026, 1, 2), QTime(3, 4, 5));
    const QLocale before;
    // They write other digits, and two of them count other years.
    for (const char *locale : {"ar_EG", "fa_IR", "bn_BD", "th_TH", "my_MM", "de_DE"}) {
        QLocale::setDefault(QLocale(QLatin1String(locale)));
        EXPECT_EQ(wallpaperFileName(now, u"png"_s), u"wallpaper_2026-01-02_03-04-05.png"_s) << locale;
    }
    QLocale::setDefault(before);
}

} // namespace quorvane
