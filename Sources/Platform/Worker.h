#pragma once

#include "Platform/ThreadHandover.h"

#include <QCoroFuture>
#include <QCoroTask>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <exception>
#include <memory>
#include <optional>
#include <type_traits>

namespace quorvane {

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
    auto body = [outcome, work = std::move(work)]() mutable {
        ThreadHandover::taking(outcome.get());
        try {
            if constexpr (std::is_void_v<Result>) {
                work();
                outcome->value = true;
            } else {
                outcome->value.emplace(work());
            }
        } catch (...) {
            outcome->failure = std::current_exception();
        }
        // What work holds goes on this thread, before the other one is told.
        {
            const Work done = std::move(work);
        }
        ThreadHandover::giving(outcome.get());
    };
    ThreadHandover::giving(outcome.get());
    QFuture<void> future = QtConcurrent::run(pool, std::move(body));
    co_await future;
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
