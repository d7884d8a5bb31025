#pragma once

#include "Providers/ProviderError.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <stop_token>

/// Where the super-resolution network lies, and what it is. Reads the environment on every call.
namespace quorvane {

/// The network in use: the user's, else the first of the installed ones; nothing when there is none.
[[nodiscard]] std::optional<QString> findModel();

/// Where the user's own network lies or would lie: quorvane/models/RealESRGAN.onnx in the data folder.
[[nodiscard]] QString userModelPath();

/// The provider error for "there is none".
[[nodiscard]] ProviderError missingModel();

/// The content of the file at path, for loading it and for copying exactly what was loaded. Throws ModelError when it
/// cannot be read or is too large to be a network, and UpscaleStopped.
[[nodiscard]] QByteArray readModel(const QString &path, const std::stop_token &stop = {});

} // namespace quorvane
