#pragma once

#include "App/CommandLine.h"

namespace quorvane {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongCommandLine = 2;

/// Carries the command out in this process, without windows, and returns the exit status. Needs neither a display nor
/// a session bus. Waits for what it starts.
[[nodiscard]] int runCommand(const CommandLine &line);

} // namespace quorvane
