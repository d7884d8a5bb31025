#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace quorvane {

/// The moment's time of day on this machine, in hours and minutes as the locale writes them; never with seconds, which
/// the plain locale "C" would show.
[[nodiscard]] QString shortTime(const QDateTime &moment, const QLocale &locale);

} // namespace quorvane
