#include "Manager/IntervalLabel.h"

namespace quorvane {

QString formatInterval(qint64 minutes)
{
    constexpr qint64 kMinutesPerHour = 60;
    if (minutes < kMinutesPerHour) {
        return QString::number(minutes) + QStringLiteral(" min");
    }
    if (minutes < 2 * kMinutesPerHour) {
        return QStringLiteral("1 hour");
    }
    return QString::number(minutes / kMinutesPerHour) + QStringLiteral(" hours");
}

} // namespace quorvane
