#pragma once

#include <QDateTime>
#include <QString>

namespace quorvane {

/// The name of a picture written at the moment now (local time): "wallpaper_2026-01-31_23-59-59.png". Two pictures of
/// one second share a name.
[[nodiscard]] inline QString wallpaperFileName(const QDateTime &now, const QString &extension)
{
    return QStringLiteral("wallpaper_") + now.toLocalTime().toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss")) +
           QLatin1Char('.') + extension;
}

} // namespace quorvane
