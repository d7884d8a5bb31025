#include "Platform/Threads/TaskScope.h"

#include "Platform/Threads/Worker.h"
#include "Support/WaitFor.h"

#include <QSemaphore>
#include <QThread>

#include <gtest/gtest.h>

#include <optional>

namespace quorvane {

namespace {

QCoro::Task<> untilStopped(std::stop_token stop, bool *wasStopped)
{
    auto work = [stop = std::move(stop)] {
        while (!stop.stop_requested()) {
            QThread::yieldCurrentThread();
        }
    };
    co_await onWorker(std::move(work));
    *wasStopped = true;
}

/// Ends once it gets the semaphore; false when that takes too long.
QCoro::Task<> untilReleased(QSemaphore *semaphore, std::optional<bool> *wasReleased)
{
    auto work = [semaphore] { return semaphore->tryAcquire(1, 20'000); };
    *wasReleased = co_await onWorker(std::move(work));
}

QCoro::Task<> atOnce(bool *hasRun)
{
    *hasRun = true;
    co_return;
}

} // namespace

TEST(TaskScope, drainingAsksToStopAndWaits)
{
    bool wasStopped = false;
    {
        TaskScope scope;
        scope.start(untilStopped(scope.stopToken(), &wasStopped));
        EXPECT_EQ(scope.running(), 1);
        EXPECT_FALSE(wasStopped);
    }
    EXPECT_TRUE(wasStopped);
}

TEST(TaskScope, waitingAsksNobodyToStop)
{
    TaskScope scope;
    QSemaphore semaphore;
    std::optional<bool> wasReleased;
    scope.start(untilReleased(&semaphore, &wasReleased));
    semaphore.release();
    scope.wait();
    EXPECT_EQ(wasReleased, true);
    EXPECT_EQ(scope.running(), 0);
    EXPECT_FALSE(scope.stopToken().stop_requested());
}

TEST(TaskScope, countsWhatHasNotEnded)
{
    TaskScope scope;
    bool hasRun = false;
    scope.start(atOnce(&hasRun));
    EXPECT_TRUE(hasRun);
    EXPECT_EQ(scope.running(), 0);

    QSemaphore semaphore;
    std::optional<bool> first;
    std::optional<bool> second;
    scope.start(untilReleased(&semaphore, &first));
    scope.start(untilReleased(&semaphore, &second));
    EXPECT_EQ(scope.running(), 2);
    semaphore.release();
    EXPECT_TRUE(waitFor([&] { return scope.running() == 1; }));
    EXPECT_NE(first.has_value(), second.has_value());
    semaphore.release();
    EXPECT_TRUE(waitFor([&] { return scope.running() == 0; }));
}

TEST(TaskScope, theLoopIsNotBlockedWhileItWaits)
{
    // The task ends only when the event loop has gone round meanwhile.
    TaskScope scope;
    QSemaphore semaphore;
    std::optional<bool> wasReleased;
    scope.start(untilReleased(&semaphore, &wasReleased));
    QTimer::singleShot(0, qApp, [&] { semaphore.release(); });
    scope.drain();
    EXPECT_EQ(wasReleased, true);
}

} // namespace quorvane
