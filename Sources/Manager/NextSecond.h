#pragma once

#include <QCoroTask>
#include <QDateTime>

#include <stop_token>

namespace quorvane {

/// Waits in the event loop, by real time, until a clock that told now has come to the next second: 1.1 seconds at the
/// most, also where that clock stands still. Ends soon when asked to stop, which happens on the calling thread.
[[nodiscard]] QCoro::Task<> nextSecond(QDateTime now, std::stop_token stop);

} // namespace quorvane
