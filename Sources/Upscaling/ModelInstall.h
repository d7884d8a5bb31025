#pragma once

#include <QString>

#include <stop_token>

namespace quorvane {

/// Loads the network at path and says in a line what it is. Throws ModelError as SuperResolutionModel does.
[[nodiscard]] QString describeModel(const QString &path);

/// Makes file the user's network, after loading it and enlarging one tile with it. Takes as long as a tile. Throws, and
/// leaves the network in use as it is, when the file does not fit (ModelError), gives no likeness of the tile
/// (ProviderError), cannot be copied (ModelError), or stop was requested (UpscaleStopped). Blocks; meant for a worker.
void installModel(const QString &file, const std::stop_token &stop = {});

} // namespace quorvane
