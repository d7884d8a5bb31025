#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

class UserDefaults;
class WallpaperManager;

/// The settings as the command line shows and changes them, under the names by which they are stored.
namespace SettingsTable {

/// Every name there is.
[[nodiscard]] QStringList keys(const WallpaperManager &manager);

/// The value in force: the stored one, or what holds while none is stored. null for an unknown key.
[[nodiscard]] QJsonValue value(const WallpaperManager &manager, const UserDefaults &defaults, const QString &key);

/// Sets one value from text, with everything that a change of it entails. What is wrong with key or text, for the
/// user; nothing when it is set.
[[nodiscard]] std::optional<QString> set(WallpaperManager &manager, UserDefaults &defaults, const QString &key,
                                         const QString &text);

/// Goes back to what holds while nothing is stored. What is wrong with key; nothing when it is done.
[[nodiscard]] std::optional<QString> unset(WallpaperManager &manager, UserDefaults &defaults, const QString &key);

} // namespace SettingsTable

} // namespace quorvane
