#include "Manager/IntervalLabel.h"
#include "Manager/WallpaperManager.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

TEST(IntervalLabel, everyOfferedIntervalHasItsLabel)
{
    QStringList labels;
    for (const int minutes : WallpaperManager::intervalOptions()) {
        labels.append(formatInterval(minutes));
    }
    EXPECT_EQ(labels.join(','_L1), u"5 min,15 min,30 min,1 hour,2 hours,4 hours,8 hours,12 hours,24 hours"_s);
}

TEST(IntervalLabel, minutesNeverStandBesideHours)
{
    const QList<std::pair<qint64, QString>> cases{
        {-5, u"-5 min"_s},  {0, u"0 min"_s},     {59, u"59 min"_s},   {60, u"1 hour"_s},          {90, u"1 hour"_s},
        {119, u"1 hour"_s}, {120, u"2 hours"_s}, {150, u"2 hours"_s}, {1000000, u"16666 hours"_s}};
    for (const auto &[minutes, label] : cases) {
        EXPECT_EQ(formatInterval(minutes), label);
    }
}

} // namespace quorvane
