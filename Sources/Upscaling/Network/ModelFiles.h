#pragma once

#include "Providers/ProviderError.h"

#include <QString>

#include <optional>
#include <stop_token>

/// Where the super-resolution network lies, and how a user's own gets there. Reads the environment on every call.
namespace quorvane {

/// The network in use: the user's, else the first of the installed ones; nothing when there is none.
[[nodiscard]] std::optional<QString> findModel();

/// Where the user's own network lies or would lie: quorvane/models/RealESRGAN.onnx in the data folder.
[[nodiscard]] QString userModelPath();

/// The provider error for "there is none".
[[nodiscard]] ProviderError missingModel();

/// Loads the network at path and says in a line what it is. Throws ModelError as SuperResolutionModel does.
[[nodiscard]] QString describeModel(const QString &path);

/// Makes file the user's network, after loading it and enlarging one tile with it. Takes as long as a tile. Throws, and
/// leaves the network in use as it is, when the file does not fit (ModelError), gives no likeness of the tile
/// (ProviderError), cannot be copied (ModelError), or stop was requested (UpscaleStopped). Blocks; meant for a worker.
void installModel(const QString &file, const std::stop_token &stop = {});

} // namespace quorvane
