#pragma once

#include "App/Command/CommandRunner.h"

#include <QCoroTask>

namespace quorvane {

class UserDefaults;

/// The commands that are about settings, and what every command does that may change one.
namespace SettingsCommands {

/// The verb "settings".
[[nodiscard]] CommandOutcome settings(Services &services, const CommandLine &line);

/// The verb "auto".
[[nodiscard]] CommandOutcome switchAuto(WallpaperManager &manager, const CommandLine &line);

[[nodiscard]] bool mayChange(const CommandLine &line);

/// Ends a command once the settings are on the disk. Where they are not to be had there, a command that was about them
/// has failed, and one that made or set a picture tells it beside its outcome.
[[nodiscard]] QCoro::Task<> endingWhenKept(UserDefaults &defaults, CommandOutcome outcome, CommandRunner::Ended ended);

} // namespace SettingsCommands

} // namespace quorvane
