#pragma once

#include "App/Command/CommandLine.h"
#include "App/Command/CommandOutcome.h"

namespace quorvane {

/// Carries the command out, through the running application where that is its business and it runs, and else in this
/// process, without windows. Waits for the end, prints it, and returns the exit status. Needs neither a display nor a
/// session bus.
[[nodiscard]] int runCommand(CommandLine line);

} // namespace quorvane
