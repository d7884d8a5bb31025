#include "Manager/IntervalLabel.h"

#include <QCoreApplication>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(IntervalLabel)
};

} // namespace

QString formatInterval(qint64 minutes)
{
    constexpr qint64 kMinutesPerHour = 60;
    if (minutes < kMinutesPerHour) {
        return Tr::tr("%1 min", "an interval").arg(minutes);
    }
    if (minutes < 2 * kMinutesPerHour) {
        return Tr::tr("1 hour", "an interval");
    }
    return Tr::tr("%n hours", "an interval of two or more", int(minutes / kMinutesPerHour));
}

} // namespace quorvane
