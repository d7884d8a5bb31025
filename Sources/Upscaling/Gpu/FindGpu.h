#pragma once

#include "Upscaling/Gpu/Gpu.h"

#include <QString>

#include <optional>

namespace quorvane {

/// What may compute on this machine's graphics card; nothing when there is no card, the inference engine cannot use
/// one, or the worker is not installed. Reads the system on every call.
[[nodiscard]] std::optional<GpuProgram> findGpu();

/// Whether devices, usually "/dev", has a graphics card that this user may compute on. A driver that computes on the
/// processor has no device.
[[nodiscard]] bool hasGpu(const QString &devices);

} // namespace quorvane
