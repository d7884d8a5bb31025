#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace quorvane {

/// Runs the event loop until condition holds; false when it did not within limit.
///
/// In between it rests until the next event, because what is waited for needs the processor too; no event tells of a
/// file or of another process, so it looks now and then in any case.
template <typename Condition>
[[nodiscard]] bool waitFor(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(20))
{
    const QDeadlineTimer deadline(limit);
    QTimer nextLook;
    nextLook.start(std::chrono::milliseconds(10));
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace quorvane
