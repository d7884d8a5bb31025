#pragma once

#include <QString>

namespace quorvane {

/// The short label of an interval: "45 min", "1 hour" (60 to 119 minutes), "2 hours". Never minutes beside hours.
[[nodiscard]] QString formatInterval(qint64 minutes);

} // namespace quorvane
