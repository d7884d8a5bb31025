#pragma once

#include <chrono>
#include <future>
#include <optional>
#include <stop_token>
#include <thread>
#include <type_traits>
#include <utility>

#include <csignal>
#include <pthread.h>

namespace quorvane {

/// How long one question to the desktop waits for its answer, in all.
inline constexpr std::chrono::milliseconds kDesktopLimit{5000};

/// Runs work(std::stop_token) on a thread of its own, for calls into libraries that know no time limit. Its result, or
/// nothing when it took longer than limit. In that case the thread goes on alone until whatever it hangs on gives way:
/// work must own everything it uses, and must look at the token before it changes anything. What it throws in time is
/// thrown here.
template <typename Work>
[[nodiscard]] std::optional<std::invoke_result_t<Work, std::stop_token>> withinLimit(std::chrono::milliseconds limit,
                                                                                     Work work)
{
    const std::stop_source stop;
    std::packaged_task<std::invoke_result_t<Work, std::stop_token>()> task(
        [work = std::move(work), token = stop.get_token()]() mutable {
            // A library that writes into a connection whose other end died must not end the program.
            sigset_t brokenPipe;
            sigemptyset(&brokenPipe);
            sigaddset(&brokenPipe, SIGPIPE);
            pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
            return work(token);
        });
    auto future = task.get_future();
    std::thread thread(std::move(task));
    if (future.wait_for(limit) == std::future_status::ready) {
        thread.join();
        return future.get();
    }
    stop.request_stop();
    thread.detach();
    return std::nullopt;
}

} // namespace quorvane
