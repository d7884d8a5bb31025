#pragma once

#include "Platform/Threads/ThreadHandover.h"

#include <QFuture>
#include <QPromise>
#include <QRunnable>
#include <QThreadPool>

#include <memory>
#include <optional>
#include <utility>

namespace quorvane {

/// Work of a thread pool that the thread sanitizer can follow, which it cannot where QtConcurrent moves the work
/// itself.
template <typename Work> class PoolTask final : public QRunnable
{
  public:
    explicit PoolTask(Work work)
        : m_work(std::in_place, std::move(work))
    {
        m_promise.start();
        ThreadHandover::giving(this);
    }
    [[nodiscard]] QFuture<void> future() { return m_promise.future(); }

    void run() override
    {
        ThreadHandover::taking(this);
        (*m_work)();    // NOLINT(bugprone-unchecked-optional-access): a pool runs a task once.
        m_work.reset(); // What it holds goes on this thread, before the other one is told.
        m_promise.finish();
    }

  private:
    std::optional<Work> m_work;
    QPromise<void> m_promise;
};

/// Runs work on a thread of pool. It must not throw, runs to its end even when nobody waits any more, and therefore
/// owns what it uses. What it made is seen by who waited after ThreadHandover::taking() what work ended with giving().
template <typename Work> QFuture<void> runOnPool(QThreadPool *pool, Work work)
{
    auto task = std::make_unique<PoolTask<Work>>(std::move(work));
    QFuture<void> future = task->future();
    pool->start(task.release()); // The pool deletes it.
    return future;
}

} // namespace quorvane
