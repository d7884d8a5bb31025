#include "Platform/Threads/BackgroundThread.h"

#include <gtest/gtest.h>

#include <sched.h>
#include <sys/resource.h>
#include <thread>

namespace quorvane {

TEST(BackgroundThread, aLoweredThreadAndThoseItStartsGoLastAndNoOther)
{
    const int before = getpriority(PRIO_PROCESS, 0);
    int own = -1;
    int child = -1;
    std::thread([&] {
        lowerThreadPriority();
        own = getpriority(PRIO_PROCESS, 0);
        std::thread([&] { child = getpriority(PRIO_PROCESS, 0); }).join();
    }).join();
    EXPECT_GE(own, 10);
    EXPECT_EQ(child, own);
    EXPECT_EQ(getpriority(PRIO_PROCESS, 0), before);
}

TEST(BackgroundThread, coresAreCountedWithinWhatTheProcessMayUse)
{
    EXPECT_GE(physicalCores(), 1);
    cpu_set_t before;
    ASSERT_EQ(sched_getaffinity(0, sizeof before, &before), 0);
    EXPECT_LE(physicalCores(), CPU_COUNT(&before));

    cpu_set_t one;
    CPU_ZERO(&one);
    for (int cpu = 0; cpu < CPU_SETSIZE; ++cpu) {
        if (CPU_ISSET(cpu, &before)) {
            CPU_SET(cpu, &one);
            break;
        }
    }
    ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
    EXPECT_EQ(physicalCores(), 1);
    ASSERT_EQ(sched_setaffinity(0, sizeof before, &before), 0);
}

} // namespace quorvane
