#include "Views/ProgressText.h"

#include <QCoreApplication>

namespace quorvane {

namespace {

/// Rounded up, so that the last seconds never read as none.
QString timeLeft(std::chrono::milliseconds remaining)
{
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(remaining).count();
    constexpr int kLastMinute = 60;
    if (seconds < kLastMinute) {
        return QCoreApplication::translate("ProgressText", "%n s left", "seconds", int(seconds));
    }
    const auto minutes = std::chrono::ceil<std::chrono::minutes>(remaining).count();
    return QCoreApplication::translate("ProgressText", "about %n min left", "minutes", int(minutes));
}

} // namespace

QString progressText(const std::optional<UpscaleProgress> &progress)
{
    if (!progress) {
        return {};
    }
    const QString tiles = QCoreApplication::translate("ProgressText", "%1 of %n tiles", nullptr, progress->tilesTotal)
                              .arg(progress->tilesDone);
    return progress->remaining ? QCoreApplication::translate("ProgressText", "%1, %2", "tiles, time left")
                                     .arg(tiles, timeLeft(*progress->remaining))
                               : tiles;
}

double progressShare(const std::optional<UpscaleProgress> &progress)
{
    return progress && progress->tilesTotal > 0 ? double(progress->tilesDone) / progress->tilesTotal : 0;
}

} // namespace quorvane
