#pragma once

namespace quorvane {

/// What this process sees through Vulkan.
enum class VulkanDevices {
    None,
    /// At least one driver computes on the processor instead: that takes minutes for a tile.
    Software,
    Hardware
};

/// Known software drivers are switched off first, for this process's whole life; one under another name shows as
/// Software. Loads the drivers, so call it only where one may crash, and on the only thread.
[[nodiscard]] VulkanDevices findVulkanDevices();

} // namespace quorvane
