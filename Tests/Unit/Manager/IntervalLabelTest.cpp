#include "Manager/IntervalLabel.h"
#include "Manager/WallpaperManager.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(IntervalLabel, everyOfferedIntervalHasItsLabel)
{
    QStringList labels;
    for (const int minutes : WallpaperManager::intervalOptions()) {
        labels.append(formatInterval(minutes));
    }
    EXPECT_EQ(labels.join(QLatin1Char(',')),
              QStringLiteral("5 min,15 min,30 min,1 hour,2 hours,4 hours,8 hours,12 hours,24 hours"));
}

TEST(IntervalLabel, minutesNeverStandBesideHours)
{
    const QList<std::pair<qint64, QString>> cases{
        {-5, QStringLiteral("-5 min")},   {0, QStringLiteral("0 min")},     {59, QStringLiteral("59 min")},
        {60, QStringLiteral("1 hour")},   {90, QStringLiteral("1 hour")},   {119, QStringLiteral("1 hour")},
        {120, QStringLiteral("2 hours")}, {150, QStringLiteral("2 hours")}, {1000000, QStringLiteral("16666 hours")}};
    for (const auto &[minutes, label] : cases) {
        EXPECT_EQ(formatInterval(minutes), label);
    }
}

} // namespace quorvane
