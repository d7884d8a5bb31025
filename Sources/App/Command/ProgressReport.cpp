#include "App/Command/ProgressReport.h"

#include <QCoreApplication>

#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvane::Reports {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Reports)
};

} // namespace

QString progressLine(const UpscaleProgress &progress)
{
    const QString tiles = Tr::tr("%1 of %n tiles", nullptr, progress.tilesTotal).arg(progress.tilesDone);
    if (!progress.remaining) {
        return tiles;
    }
    constexpr int kSecondsPerMinute = 60;
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(*progress.remaining).count();
    return Tr::tr("%1, %2:%3 left")
        .arg(tiles)
        .arg(seconds / kSecondsPerMinute)
        .arg(seconds % kSecondsPerMinute, 2, 10, '0'_L1);
}

QVariantMap progressMap(const UpscaleProgress &progress)
{
    QVariantMap map{{u"tilesDone"_s, progress.tilesDone}, {u"tilesTotal"_s, progress.tilesTotal}};
    if (progress.remaining) {
        const auto remaining = std::chrono::duration_cast<std::chrono::milliseconds>(*progress.remaining);
        map.insert(u"remainingMilliseconds"_s, qint64{remaining.count()});
    }
    return map;
}

UpscaleProgress progressFrom(const QVariantMap &map)
{
    UpscaleProgress progress{map.value(u"tilesDone"_s).toInt(), map.value(u"tilesTotal"_s).toInt(), std::nullopt};
    const QVariant remaining = map.value(u"remainingMilliseconds"_s);
    if (remaining.isValid()) {
        progress.remaining = std::chrono::milliseconds(remaining.toLongLong());
    }
    return progress;
}

} // namespace quorvane::Reports
