#include "Upscaling/Gpu/VulkanDevices.h"

#include <QByteArray>

#include <algorithm>
#include <cstdint>
#include <dlfcn.h>
#include <vector>

// The loader is there or not, so its three functions are looked up instead of linked.
#define VK_NO_PROTOTYPES
#include <vulkan/vulkan.h>

namespace quorvane {

namespace {

/// By the names of their manifests; the loader knows this variable from version 1.3.234 on.
constexpr const char *kSwitchOff = "VK_LOADER_DRIVERS_DISABLE";
constexpr const char *kSoftwareDrivers = "*lvp*,*lavapipe*,*swiftshader*";

template <typename Function> Function function(void *library, const char *name)
{
    return reinterpret_cast<Function>(dlsym(library, name));
}

void switchSoftwareDriversOff()
{
    const QByteArray before = qgetenv(kSwitchOff);
    qputenv(kSwitchOff, before.isEmpty() ? QByteArray(kSoftwareDrivers) : before + ',' + kSoftwareDrivers);
}

} // namespace

VulkanDevices findVulkanDevices()
{
    switchSoftwareDriversOff();
    void *library = dlopen("libvulkan.so.1", RTLD_NOW | RTLD_LOCAL); // Never closed: the engine loads it again.
    if (library == nullptr) {
        return VulkanDevices::None;
    }
    const auto createInstance = function<PFN_vkCreateInstance>(library, "vkCreateInstance");
    const auto enumerateDevices = function<PFN_vkEnumeratePhysicalDevices>(library, "vkEnumeratePhysicalDevices");
    const auto getProperties = function<PFN_vkGetPhysicalDeviceProperties>(library, "vkGetPhysicalDeviceProperties");
    if (createInstance == nullptr || enumerateDevices == nullptr || getProperties == nullptr) {
        return VulkanDevices::None;
    }
    VkInstanceCreateInfo description{};
    description.sType = VK_STRUCTURE_TYPE_INSTANCE_CREATE_INFO;
    VkInstance instance = VK_NULL_HANDLE;
    std::uint32_t count = 0;
    if (createInstance(&description, nullptr, &instance) != VK_SUCCESS ||
        enumerateDevices(instance, &count, nullptr) != VK_SUCCESS) {
        return VulkanDevices::None;
    }
    std::vector<VkPhysicalDevice> devices(count);
    if (count == 0 || enumerateDevices(instance, &count, devices.data()) != VK_SUCCESS) {
        return VulkanDevices::None;
    }
    const bool software = std::any_of(devices.begin(), devices.end(), [getProperties](VkPhysicalDevice device) {
        VkPhysicalDeviceProperties properties{};
        getProperties(device, &properties);
        return properties.deviceType == VK_PHYSICAL_DEVICE_TYPE_CPU;
    });
    return software ? VulkanDevices::Software : VulkanDevices::Hardware;
}

} // namespace quorvane
