#pragma once

#include "Providers/ProviderError.h"

#include <QString>

#include <optional>

/// Where the super-resolution network lies, and what it is. Reads the environment on every call.
namespace quorvane {

/// The network in use: the user's, else the first of the installed ones; nothing when there is none.
[[nodiscard]] std::optional<QString> findModel();

/// Where the user's own network lies or would lie: quorvane/models/RealESRGAN.onnx in the data folder.
[[nodiscard]] QString userModelPath();

/// The provider error for "there is none".
[[nodiscard]] ProviderError missingModel();

/// Loads the network at path and says in a line what it is. Throws ModelError as SuperResolutionModel does.
[[nodiscard]] QString describeModel(const QString &path);

} // namespace quorvane
