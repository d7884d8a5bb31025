#pragma once

#include "Manager/SettingsKeys.h"
#include "Unit/Manager/ManagerFixture.h"

namespace quorvane {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;
inline const QDateTime kStart(QDate(2026, 1, 31), QTime(23, 59, 0));

class WallpaperManagerScheduleTest : public ManagerTest
{
  protected:
    WallpaperManagerScheduleTest()
    {
        clock.secondsPerLook = 0;
        EXPECT_TRUE(Keychain::save(u"K"_s, u"gemini"_s));
    }

    /// Automatic mode with the interval, from now on.
    void startEvery(qint64 minutes)
    {
        store(SettingsKeys::kIntervalMinutes, minutes);
        store(SettingsKeys::kAutoEnabled, true);
        start();
    }

    /// How many generations were asked for so far.
    int generations()
    {
        manager->waitUntilIdle();
        return static_cast<int>(service.requests().size());
    }

    [[nodiscard]] qint64 secondsLeft() { return clock.now().secsTo(manager->nextFireDate()); }
};

} // namespace quorvane
