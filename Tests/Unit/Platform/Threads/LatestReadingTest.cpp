#include "Platform/Threads/LatestReading.h"

#include "Support/WaitFor.h"

#include <QSemaphore>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <vector>

namespace quorvane {

TEST(LatestReading, readsElsewhereAndArrivesHere)
{
    QThread *reader = nullptr;
    QThread *receiver = nullptr;
    int arrived = 0;
    LatestReading<int> reading([&](int value) {
        receiver = QThread::currentThread();
        arrived = value;
    });
    EXPECT_FALSE(reading.isUnderWay());
    reading.ask([&] {
        reader = QThread::currentThread();
        return 7;
    });
    EXPECT_TRUE(reading.isUnderWay());
    EXPECT_EQ(arrived, 0) << "nothing arrives before the event loop runs";
    ASSERT_TRUE(waitFor([&] { return arrived != 0; }));
    EXPECT_EQ(arrived, 7);
    EXPECT_FALSE(reading.isUnderWay());
    EXPECT_EQ(receiver, QThread::currentThread());
    EXPECT_NE(reader, QThread::currentThread());
}

TEST(LatestReading, onlyWhatWasAskedForLastArrivesAndWhatIsInBetweenIsNotRead)
{
    QSemaphore mayEnd;
    std::atomic_int atOnce = 0;
    std::atomic_int mostAtOnce = 0;
    std::atomic_bool wasSecondRead = false;
    std::vector<int> arrived;
    LatestReading<int> reading([&](int value) { arrived.push_back(value); });
    const auto read = [&](int value) {
        const int now = ++atOnce;
        mostAtOnce = std::max(mostAtOnce.load(), now);
        mayEnd.acquire();
        --atOnce;
        return value;
    };
    reading.ask([&] { return read(1); });
    ASSERT_TRUE(waitFor([&] { return atOnce == 1; }));
    reading.ask([&] {
        wasSecondRead = true;
        return 2;
    });
    reading.ask([&] { return read(3); });
    mayEnd.release(2);
    ASSERT_TRUE(waitFor([&] { return !reading.isUnderWay(); }));
    EXPECT_EQ(arrived, std::vector{3});
    EXPECT_EQ(mostAtOnce, 1);
    EXPECT_FALSE(wasSecondRead);
}

TEST(LatestReading, theLoopIsNotBlockedByAReading)
{
    // The reading ends only when the event loop has gone round meanwhile.
    QSemaphore mayEnd;
    bool hasArrived = false;
    LatestReading<bool> reading([&](bool wasReleased) { hasArrived = wasReleased; });
    reading.ask([&] { return mayEnd.tryAcquire(1, 20'000); });
    QTimer::singleShot(0, qApp, [&] { mayEnd.release(); });
    EXPECT_TRUE(waitFor([&] { return hasArrived; }));
}

TEST(LatestReading, nothingArrivesAtAnObjectThatIsGone)
{
    struct Shared
    {
        QSemaphore mayEnd;
        std::atomic_bool isRead = false;
    };
    const auto shared = std::make_shared<Shared>();
    bool hasArrived = false;
    {
        LatestReading<int> reading([&](int /*value*/) { hasArrived = true; });
        reading.ask([shared] {
            shared->mayEnd.acquire();
            shared->isRead = true;
            return 1;
        });
    }
    shared->mayEnd.release();
    ASSERT_TRUE(waitFor([&] { return shared->isRead && QThreadPool::globalInstance()->activeThreadCount() == 0; }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(hasArrived);
}

TEST(LatestReading, theNextMayBeAskedForWhereOneArrives)
{
    std::vector<int> arrived;
    LatestReading<int> *self = nullptr;
    LatestReading<int> reading([&](int value) {
        arrived.push_back(value);
        if (value == 1) {
            self->ask([] { return 2; });
        }
    });
    self = &reading;
    reading.ask([] { return 1; });
    ASSERT_TRUE(waitFor([&] { return arrived.size() == 2; }));
    EXPECT_EQ(arrived, (std::vector{1, 2}));
    EXPECT_FALSE(reading.isUnderWay());
}

} // namespace quorvane
