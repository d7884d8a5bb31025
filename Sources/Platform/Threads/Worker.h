#pragma once

#include "Platform/Threads/PoolTask.h"

#include <QCoroTask>
#include <QFutureWatcher>

#include <coroutine>
#include <exception>
#include <memory>
#include <optional>
#include <type_traits>

namespace quorvane {

/// To be awaited: goes on from the event loop once the future has ended. QCoro's own way goes on at once where the
/// other thread was quick, so that what follows would now and then happen before the caller is ready for it.
class EndOf
{
  public:
    explicit EndOf(QFuture<void> future)
        : m_future(std::move(future))
    {
    }

    // NOLINTBEGIN(readability-identifier-naming): the language's names.
    [[nodiscard]] static constexpr bool await_ready() noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting)
    {
        auto watcher = std::make_unique<QFutureWatcher<void>>();
        QObject::connect(watcher.get(), &QFutureWatcherBase::finished, watcher.get(), [it = watcher.get(), waiting] {
            it->deleteLater();
            waiting.resume();
        });
        watcher.release()->setFuture(m_future);
    }
    static constexpr void await_resume() noexcept {}
    // NOLINTEND(readability-identifier-naming)

  private:
    QFuture<void> m_future;
};

/// Runs work on a thread of pool and comes back on the calling thread, which must have an event loop. What work throws
/// is thrown here with its own type (QtConcurrent alone would turn it into a QUnhandledException).
///
/// work runs to its end even when nobody waits any more, so it must own what it uses.
template <typename Work> [[nodiscard]] QCoro::Task<std::invoke_result_t<Work>> onWorker(QThreadPool *pool, Work work)
{
    using Result = std::invoke_result_t<Work>;
    struct Outcome
    {
        std::optional<std::conditional_t<std::is_void_v<Result>, bool, Result>> value;
        std::exception_ptr failure;
    };
    auto outcome = std::make_shared<Outcome>();
    auto body = [outcome, work = std::optional<Work>(std::move(work))]() mutable {
        try {
            if constexpr (std::is_void_v<Result>) {
                (*work)();
                outcome->value = true;
            } else {
                outcome->value.emplace((*work)());
            }
        } catch (...) {
            outcome->failure = std::current_exception();
        }
        // What work holds goes on this thread, before the other one is told.
        work.reset();
        ThreadHandover::giving(outcome.get());
    };
    QFuture<void> future = runOnPool(pool, std::move(body));
    co_await EndOf(std::move(future));
    ThreadHandover::taking(outcome.get());
    auto &value = outcome->value;
    if (!value) {
        std::rethrow_exception(outcome->failure);
    }
    if constexpr (!std::is_void_v<Result>) {
        co_return std::move(*value);
    }
}

/// As above, on the program's common pool.
template <typename Work> [[nodiscard]] QCoro::Task<std::invoke_result_t<Work>> onWorker(Work work)
{
    return onWorker(QThreadPool::globalInstance(), std::move(work));
}

} // namespace quorvane
