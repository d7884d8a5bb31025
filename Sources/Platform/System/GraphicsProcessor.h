#pragma once

namespace quorvane {

/// Whether this machine has a graphics processor that programs can draw with.
[[nodiscard]] bool hasGraphicsProcessor();

} // namespace quorvane
