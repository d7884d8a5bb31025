#pragma once

#include "Providers/EncodedImage.h"
#include "Upscaling/Gpu/Gpu.h"

#include <QCoroTask>
#include <QImage>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

/// Enlarges a picture four times on this machine: cut into tiles of 512 × 512, each tile through the super-resolution
/// network, the results side by side in a canvas, and the canvas without the padding as a PNG.
namespace quorvane {

class SuperResolutionModel;

/// How far an upscale is. Only goes forward.
struct UpscaleProgress
{
    int tilesDone = 0;
    int tilesTotal = 0;
    /// As the tiles so far took; nothing before the first one is done.
    std::optional<std::chrono::milliseconds> remaining;

    friend bool operator==(const UpscaleProgress &, const UpscaleProgress &) = default;
};

/// encoded is a picture of any format that Qt reads; the result is a PNG with four times its width and height, its
/// colour profile and its transparency, and always has the extension "png".
///
/// All work happens on threads of its own with low priority, as many as the machine has cores, which are gone at the
/// end; where a graphics card proves to be faster, it does the later tiles. Call it on a thread with an event loop:
/// onProgress, which may be empty, is called there. Throws ProviderError (its invalid-response form), ModelError, or
/// UpscaleStopped soon after a stop request.
[[nodiscard]] QCoro::Task<EncodedImage> localUpscaleImage(QByteArray encoded, std::stop_token stop,
                                                          std::function<void(UpscaleProgress)> onProgress);

// The steps, each blocking the thread it is called on.

/// How an upscale runs on this machine. Read by the thread that upscales, for as long as it does.
struct TileUpscaleOptions
{
    int threads = 1;                                      ///< Of the network; 1 or more.
    std::stop_token stop = {};                            ///< Ends it with UpscaleStopped, also inside a tile.
    std::function<void(UpscaleProgress)> onProgress = {}; ///< Called on the thread that upscales.
    std::optional<GpuProgram> card = {};                  ///< To be tried beside the processor.
};

/// Finds and loads the network, then as tileUpscaleWithModel(). Nothing is kept between calls. Throws ProviderError
/// (its invalid-response form) where there is no network or the picture is too large, ModelError, and UpscaleStopped.
[[nodiscard]] QByteArray tileUpscaleImage(const QImage &image, const TileUpscaleOptions &options);

/// image as decodeImage() gives it to a PNG, tile by tile in reading order. The canvas is written while it grows, so
/// memory follows the row of tiles and not the picture. options.threads and options.card are the others' matter; the
/// one without a card computes on the processor alone.
[[nodiscard]] QByteArray tileUpscaleWithModel(const QImage &image, SuperResolutionModel &model, Gpu &card,
                                              const TileUpscaleOptions &options);
[[nodiscard]] QByteArray tileUpscaleWithModel(const QImage &image, SuperResolutionModel &model,
                                              const TileUpscaleOptions &options);

/// image in the top left corner of a picture of width × height whose other pixels are zero; image itself when it has
/// that size already.
[[nodiscard]] QImage padImageToTile(const QImage &image, int width, int height);

/// One tile through the network, of 512 × 512 or of any size for a network with a reach: four times as large,
/// Format_RGBX8888. Throws ModelError and UpscaleStopped.
[[nodiscard]] QImage upscaleTileWithModel(const QImage &tile, SuperResolutionModel &model, const std::stop_token &stop);

} // namespace quorvane
