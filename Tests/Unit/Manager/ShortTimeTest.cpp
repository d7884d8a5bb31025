#include "Manager/ShortTime.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(ShortTime, itIsWrittenAsTheLocaleWritesIt)
{
    const QDateTime moment(QDate(2026, 3, 1), QTime(14, 5, 37));
    EXPECT_EQ(shortTime(moment, QLocale(u"de_DE"_s)), u"14:05"_s);
    EXPECT_EQ(shortTime(moment, QLocale(u"fi_FI"_s)), u"14.05"_s);
    EXPECT_EQ(shortTime(moment, QLocale::c()), u"14:05"_s);
}

TEST(ShortTime, noLocaleShowsSeconds)
{
    const QDateTime moment(QDate(2026, 3, 1), QTime(14, 5, 37));
    const QDateTime later = moment.addSecs(20);
    const auto all = QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    for (const QLocale &locale : all) {
        EXPECT_EQ(shortTime(moment, locale), shortTime(later, locale)) << locale.name().toStdString();
        EXPECT_NE(shortTime(moment, locale), shortTime(moment.addSecs(60), locale)) << locale.name().toStdString();
    }
}

} // namespace quorvane
