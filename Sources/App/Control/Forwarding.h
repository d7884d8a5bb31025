#pragma once

#include "App/Command/CommandLine.h"
#include "App/Command/CommandOutcome.h"

#include <optional>

namespace quorvane {

/// Lets the running application carry the command out, and waits for it; its status and progress go to standard error
/// meanwhile. Nothing where no application runs or the command is not the application's business. Files in the line are
/// absolute.
[[nodiscard]] std::optional<CommandOutcome> forward(const CommandLine &line);

} // namespace quorvane
