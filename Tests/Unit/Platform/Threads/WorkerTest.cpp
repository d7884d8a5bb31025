#include "Platform/Threads/Worker.h"
#include "Platform/Threads/TaskScope.h"
#include "Support/WaitFor.h"

#include <QSemaphore>
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

TEST(Worker, theLoopIsNotBlockedByTheWork)
{
    struct Caller
    {
        static QCoro::Task<> call(QSemaphore *mayEnd, bool *wasReleased)
        {
            auto work = [mayEnd] { return mayEnd->tryAcquire(1, 20'000); };
            *wasReleased = co_await onWorker(std::move(work));
        }
    };
    // The work ends only when the event loop has gone round meanwhile.
    TaskScope scope;
    QSemaphore mayEnd;
    bool wasReleased = false;
    scope.start(Caller::call(&mayEnd, &wasReleased));
    QTimer::singleShot(0, qApp, [&] { mayEnd.release(); });
    EXPECT_TRUE(waitFor([&] { return scope.running() == 0; }));
    EXPECT_TRUE(wasReleased);
}

} // namespace quorvane
