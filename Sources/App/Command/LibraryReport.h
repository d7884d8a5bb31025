#pragma once

#include "Manager/WallpaperManager.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

/// What the command line tells of the pictures: JSON for programs, and the same as text for people.
namespace quorvane::Reports {

/// One object for each picture of the history, in its order.
[[nodiscard]] QJsonArray history(const WallpaperManager &manager);

/// What history() gave, a line for each picture.
[[nodiscard]] QString historyText(const QJsonArray &history);

/// One object for each album, in the order of the gallery.
[[nodiscard]] QJsonArray albums(const WallpaperManager &manager);

/// What albums() gave: a line for each album, and below it one for each of its pictures.
[[nodiscard]] QString albumsText(const QJsonArray &albums);

/// A picture that was just marked or deleted.
[[nodiscard]] QJsonObject changedFile(const WallpaperManager &manager, const QString &path);

} // namespace quorvane::Reports
