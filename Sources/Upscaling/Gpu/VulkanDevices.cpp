#include "Upscaling/Gpu/VulkanDevices.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cstdint>
#include <dlfcn.h>
#include <vector>

// The loader is there or not, and three of its functions are needed: their few declarations stand here instead of a
// dependency. They are part of Vulkan 1.0 and cannot change.

namespace quorvane {

namespace {

/// By the names of their manifests; the loader knows this variable from version 1.3.234 on.
constexpr const char *kSwitchOff = "VK_LOADER_DRIVERS_DISABLE";
constexpr const char *kSoftwareDrivers = "*lvp*,*lavapipe*,*swiftshader*";

struct Instance;
struct Device;

struct InstanceDescription
{
    std::int32_t structureType = 1;
    const void *next = nullptr;
    std::uint32_t flags = 0;
    const void *application = nullptr;
    std::uint32_t layerCount = 0;
    const char *const *layers = nullptr;
    std::uint32_t extensionCount = 0;
    const char *const *extensions = nullptr;
};

struct DeviceProperties
{
    static constexpr std::int32_t kProcessor = 4;

    std::array<std::uint32_t, 4> versionsAndIds;
    std::int32_t deviceType;
    std::array<std::uint64_t, 256> rest; ///< Names and limits: about 800 bytes.
};

using CreateInstance = std::int32_t (*)(const InstanceDescription *, const void *, Instance **);
using EnumerateDevices = std::int32_t (*)(Instance *, std::uint32_t *, Device **);
using GetProperties = void (*)(Device *, DeviceProperties *);

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
    const auto createInstance = function<CreateInstance>(library, "vkCreateInstance");
    const auto enumerateDevices = function<EnumerateDevices>(library, "vkEnumeratePhysicalDevices");
    const auto getProperties = function<GetProperties>(library, "vkGetPhysicalDeviceProperties");
    if (createInstance == nullptr || enumerateDevices == nullptr || getProperties == nullptr) {
        return VulkanDevices::None;
    }
    const InstanceDescription description;
    Instance *instance = nullptr;
    std::uint32_t count = 0;
    if (createInstance(&description, nullptr, &instance) != 0 || enumerateDevices(instance, &count, nullptr) != 0) {
        return VulkanDevices::None;
    }
    std::vector<Device *> devices(count);
    if (count == 0 || enumerateDevices(instance, &count, devices.data()) != 0) {
        return VulkanDevices::None;
    }
    const bool software = std::any_of(devices.begin(), devices.end(), [getProperties](Device *device) {
        DeviceProperties properties{};
        getProperties(device, &properties);
        return properties.deviceType == DeviceProperties::kProcessor;
    });
    return software ? VulkanDevices::Software : VulkanDevices::Hardware;
}

} // namespace quorvane
