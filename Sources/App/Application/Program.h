#pragma once

#include "App/Application/Scenes.h"

namespace quorvane {

/// The whole program: reads the command line, and is a command or the application. Returns the exit status.
[[nodiscard]] int runProgram(int argc, char **argv, const SceneUrls &urls);

} // namespace quorvane
