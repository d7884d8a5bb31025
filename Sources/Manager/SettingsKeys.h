#pragma once

#include <QLatin1String>
#include <QString>

/// The names under which settings are stored. Keys of image services never go there.
namespace quorvane::SettingsKeys {

using namespace Qt::StringLiterals;

inline constexpr QLatin1String kLastPrompt("lastPrompt");
inline constexpr QLatin1String kFourKEnabled("fourKEnabled");
inline constexpr QLatin1String kNsfwEnabled("nsfwEnabled");
inline constexpr QLatin1String kProviderOverride("providerOverride");
inline constexpr QLatin1String kAutoEnabled("autoEnabled");
inline constexpr QLatin1String kIntervalMinutes("intervalMinutes");
inline constexpr QLatin1String kCurrentWallpaperPath("currentWallpaperPath");
inline constexpr QLatin1String kUpscaleMethod("upscaleMethod");

/// "selectedModel_" and a provider's id.
[[nodiscard]] inline QString selectedModel(const QString &providerId)
{
    return u"selectedModel_"_s + providerId;
}

} // namespace quorvane::SettingsKeys
