#include "Manager/Library/ImageRecords.h"

#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(ImageRecords, inEnglishAMomentIsMonthDayAndTime)
{
    const QDateTime moment(QDate(2026, 1, 31), QTime(23, 59, 58));
    const QDateTime early(QDate(2026, 11, 2), QTime(7, 5));
    for (const QLocale &locale : {QLocale(QLocale::English, QLocale::UnitedStates),
                                  QLocale(QLocale::English, QLocale::UnitedKingdom), QLocale::c()}) {
        EXPECT_EQ(ImageRecords::momentText(moment, locale), u"Jan 31, 23:59"_s) << locale.name().toStdString();
        EXPECT_EQ(ImageRecords::momentText(early, locale), u"Nov 2, 07:05"_s) << locale.name().toStdString();
    }
}

TEST(ImageRecords, aLanguageWithoutAnOrderOfItsOwnHasItsShortForm)
{
    const QDateTime moment(QDate(2026, 1, 31), QTime(23, 59));
    const QLocale polish(QLocale::Polish, QLocale::Poland);
    EXPECT_EQ(ImageRecords::momentText(moment, polish), polish.toString(moment, QLocale::ShortFormat));
}

TEST(ImageRecords, withoutADateThereIsNoText)
{
    EXPECT_EQ(ImageRecords::timestamp(std::nullopt), QString());
}

} // namespace quorvane
