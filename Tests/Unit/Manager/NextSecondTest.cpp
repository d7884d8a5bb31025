#include "Manager/NextSecond.h"

#include "Platform/Threads/TaskScope.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(NextSecond, comesWhileTheEventLoopRuns)
{
    TaskScope tasks;
    const QDateTime before = QDateTime::currentDateTime();
    tasks.start(nextSecond(before, {}));
    EXPECT_EQ(tasks.running(), 1) << "it does not block";
    tasks.wait();
    EXPECT_GT(QDateTime::currentSecsSinceEpoch(), before.toSecsSinceEpoch());
}

TEST(NextSecond, isNotWaitedForAfterAStop)
{
    const QDateTime moment(QDate(2026, 1, 31), QTime(23, 59, 0));
    TaskScope patient;
    patient.start(nextSecond(moment, {}));
    std::stop_source stop;
    for (const bool isStoppedBefore : {false, true}) {
        TaskScope hurried;
        hurried.start(nextSecond(moment, stop.get_token()));
        EXPECT_EQ(hurried.running(), 1);
        if (!isStoppedBefore) {
            stop.request_stop();
        }
        hurried.wait();
        EXPECT_EQ(patient.running(), 1) << "the second is not over yet";
    }
}

} // namespace quorvane
