#pragma once

#include "App/CommandLine.h"
#include "App/CommandOutcome.h"

#include <functional>

namespace quorvane {

struct Workshop;

/// What the commands do, for a process of their own and for the running application alike. Neither prints nor waits.
namespace CommandRunner {

using Ended = std::function<void(const CommandOutcome &)>;

/// Starts the command; ended is called once, before this returns where nothing is to be waited for. The verbs are
/// those that need a manager: generate, upscale, set, favorite, delete, settings, auto, status, history, albums.
void start(Workshop &workshop, const CommandLine &line, const Ended &ended);

/// The verb "key", which needs the key file alone. The key to set is line.secret.
[[nodiscard]] CommandOutcome changeKeys(const CommandLine &line);

/// The picture that the command means, as an absolute path; empty where there is none. A bare name means one of the
/// library first. Only "set" and "upscale" take pictures from elsewhere, so that nothing else is deleted or marked.
[[nodiscard]] QString fileOf(const CommandLine &line);

/// What to say where fileOf() is empty.
[[nodiscard]] QString noSuchFile(const CommandLine &line);

} // namespace CommandRunner

} // namespace quorvane
