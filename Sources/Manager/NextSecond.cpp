#include "Manager/NextSecond.h"

#include "Platform/Threads/Worker.h"

#include <QPromise>
#include <QTimer>

#include <chrono>

namespace quorvane {

namespace {

/// A timer may ring a little early by the clock that people set.
constexpr std::chrono::milliseconds kMargin{20};

} // namespace

QCoro::Task<> nextSecond(QDateTime now, std::stop_token stop)
{
    QPromise<void> over;
    over.start();
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&over] { over.finish(); });
    timer.start(std::chrono::milliseconds(1000 - now.time().msec()) + kMargin);
    const std::stop_callback hurry(stop, [&timer] { timer.start(0); });
    QFuture<void> end = over.future();
    co_await EndOf(std::move(end));
}

} // namespace quorvane
