#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <chrono>

namespace quorvane {

/// Runs the event loop until condition holds; false when it did not within limit.
template <typename Condition>
[[nodiscard]] bool waitFor(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(20))
{
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace quorvane
