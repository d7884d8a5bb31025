#pragma once

#include <QDateTime>
#include <QString>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The name of a picture written at the moment now (local time): "wallpaper_2026-01-31_23-59-59.png". Two pictures of
/// one second share a name.
[[nodiscard]] inline QString wallpaperFileName(const QDateTime &now, const QString &extension)
{
    return u"wallpaper_"_s + now.toLocalTime().toString(u"yyyy-MM-dd_HH-mm-ss"_s) + '.'_L1 + extension;
}

} // namespace quorvane
