#pragma once

#include "ShellFixture.h"

namespace quorvane {

using ShellInstanceTest = ShellTest;

} // namespace quorvane
