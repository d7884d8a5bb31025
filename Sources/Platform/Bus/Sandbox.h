#pragma once

namespace quorvane {

/// Whether the program is shut off from the desktop, as in a Flatpak. Then the desktop's portals are the way to
/// everything outside: the folders of the configuration are the sandbox's own, and most of the bus is hidden.
[[nodiscard]] bool isSandboxed();

} // namespace quorvane
