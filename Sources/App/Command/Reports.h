#pragma once

#include "Manager/WallpaperManager.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QVariantMap>

namespace quorvane {

class DesktopPicture;
struct Screen;

/// What the command line tells about the manager: JSON for programs, and the same as text for people.
namespace Reports {

/// text, or null where it is empty: how JSON says that there is none.
[[nodiscard]] QJsonValue textOrNull(const QString &text);

/// screens are those of desktop at this moment.
[[nodiscard]] QJsonObject status(const WallpaperManager &manager, const DesktopPicture &desktop,
                                 const QList<Screen> &screens);
[[nodiscard]] QString statusText(const QJsonObject &status);

/// One object for each picture of the history, in its order.
[[nodiscard]] QJsonArray history(const WallpaperManager &manager);
[[nodiscard]] QString historyText(const QJsonArray &history);

[[nodiscard]] QJsonArray albums(const WallpaperManager &manager);
[[nodiscard]] QString albumsText(const QJsonArray &albums);

/// A picture that was just marked or deleted.
[[nodiscard]] QJsonObject changedFile(const WallpaperManager &manager, const QString &path);

/// "3 of 12 tiles, 1:20 left"
[[nodiscard]] QString progressLine(const UpscaleProgress &progress);

/// Progress as it goes over the bus: "tilesDone", "tilesTotal" and, where it is known, "remainingMilliseconds".
[[nodiscard]] QVariantMap progressMap(const UpscaleProgress &progress);
[[nodiscard]] UpscaleProgress progressFrom(const QVariantMap &map);

} // namespace Reports

} // namespace quorvane
