#include "Platform/Threads/Worker.h"
#include "Platform/Threads/TaskScope.h"
#include "Support/WaitFor.h"

#include <QThread>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct OwnError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

QCoro::Task<> compute(int *result, QThread **thread)
{
    auto work = [thread] {
        *thread = QThread::currentThread();
        return 42;
    };
    *result = co_await onWorker(std::move(work));
}

QCoro::Task<> failing(QString *caught)
{
    try {
        auto work = [] { throw OwnError("told"); };
        co_await onWorker(std::move(work));
    } catch (const OwnError &error) {
        *caught = QString::fromUtf8(error.what());
    }
}

QCoro::Task<> slow(std::stop_token stop, bool *stopped)
{
    auto work = [stop = std::move(stop)] {
        while (!stop.stop_requested()) {
            QThread::yieldCurrentThread();
        }
        return true;
    };
    *stopped = co_await onWorker(std::move(work));
}

} // namespace

TEST(Worker, runsElsewhereAndComesBackWithTheValue)
{
    TaskScope scope;
    int result = 0;
    QThread *thread = nullptr;
    scope.start(compute(&result, &thread));
    ASSERT_TRUE(waitFor([&] { return scope.running() == 0; }));
    EXPECT_EQ(result, 42);
    EXPECT_NE(thread, QThread::currentThread());
}

TEST(Worker, evenWhatIsDoneAtOnceComesBackFromTheEventLoop)
{
    struct Caller
    {
        static QCoro::Task<> call(bool *isBack)
        {
            QFuture<void> done = runOnPool(QThreadPool::globalInstance(), [] {});
            done.waitForFinished();
            co_await EndOf(std::move(done));
            *isBack = true;
        }
    };
    TaskScope scope;
    bool isBack = false;
    scope.start(Caller::call(&isBack));
    EXPECT_FALSE(isBack);
    EXPECT_TRUE(waitFor([&] { return isBack; }));
}

TEST(Worker, anExceptionKeepsItsType)
{
    TaskScope scope;
    QString caught;
    scope.start(failing(&caught));
    ASSERT_TRUE(waitFor([&] { return scope.running() == 0; }));
    EXPECT_EQ(caught, u"told"_s);
}

TEST(TaskScope, drainingAsksToStopAndWaits)
{
    bool stopped = false;
    {
        TaskScope scope;
        scope.start(slow(scope.stopToken(), &stopped));
        EXPECT_EQ(scope.running(), 1);
        EXPECT_FALSE(stopped);
    }
    EXPECT_TRUE(stopped);
}

} // namespace quorvane
