#pragma once

#include "App/Command/CommandLine.h"
#include "App/Command/CommandOutcome.h"

#include <functional>
#include <stop_token>

namespace quorvane {

class WallpaperManager;
struct Services;

/// What the commands do, for a process of their own and for the running application alike. Neither prints nor waits.
namespace CommandRunner {

using Ended = std::function<void(const CommandOutcome &)>;

/// Starts any command but "quit"; whenDone is called once, before this returns where nothing is to be waited for.
void start(Services &services, const CommandLine &line, const Ended &whenDone);

/// The verb "key", which needs the key file alone. The key to set is line.secret. A manager announces the change, so
/// that its windows follow.
[[nodiscard]] CommandOutcome changeKeys(const CommandLine &line, WallpaperManager *manager = nullptr);

/// The verb "autostart". In a sandbox it waits for the desktop; meant for a worker where there is an event loop.
[[nodiscard]] CommandOutcome switchAutostart(const CommandLine &line);

/// The verb "model". Loads a network, so it takes its time; meant for a worker where there is an event loop.
[[nodiscard]] CommandOutcome useModel(const CommandLine &line, const std::stop_token &stop = {});

/// The picture that the command means, as an absolute path. Fails where there is none. A bare name means one of the
/// library first. Only "set" and "upscale" take pictures from elsewhere, so that nothing else is deleted or marked.
[[nodiscard]] Result<QString> fileOf(const CommandLine &line);

} // namespace CommandRunner

} // namespace quorvane
