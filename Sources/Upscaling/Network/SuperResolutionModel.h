#pragma once

#include "Upscaling/Image/TileGrid.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>
#include <span>
#include <stop_token>

namespace quorvane {

/// The super-resolution network, loaded and ready to run. The one place that knows the inference engine; a build
/// without the engine has this same interface with a constructor that reports a missing model.
///
/// Accepted is what people really have: an ONNX file with one picture in and one out, of any names, [1, 3, 512, 512] or
/// any height and width, float32 or float16, RGB 0..1, four times as large. The file may come from anywhere, so its
/// size and its shapes are checked before it runs, it cannot refer to other files, and the engine's memory has a bound.
///
/// An entry "reach" in the file's metadata, a whole number of 1 to 128, says that no pixel of the result depends on
/// anything that is further away in the picture than so many pixels, and that the network continues the picture beyond
/// its edges by itself.
class SuperResolutionModel
{
  public:
    /// Loads the file at path for runs on so many threads, which inherit the calling thread's priority and end with
    /// this object. Throws ModelError: the engine's own text when it cannot load the file, or what was found and what
    /// is needed when the network does not fit.
    SuperResolutionModel(const QString &path, int threads);
    /// The same for a file's content that was read already.
    SuperResolutionModel(const QByteArray &content, int threads);
    /// As the first, computing with one of the engine's own ways, by its name, instead of on the processor. A driver
    /// may end the process instead of failing, and does not end well either: see GpuWorkerMain.cpp.
    SuperResolutionModel(const QString &path, int threads, const QString &provider);
    ~SuperResolutionModel();
    SuperResolutionModel(const SuperResolutionModel &) = delete;
    SuperResolutionModel &operator=(const SuperResolutionModel &) = delete;
    SuperResolutionModel(SuperResolutionModel &&) = delete;
    SuperResolutionModel &operator=(SuperResolutionModel &&) = delete;

    /// How many pixels beyond a tile the network looks; 0 for one that does not say so, or that takes tiles of
    /// 512 × 512 only.
    [[nodiscard]] int reach() const;

    /// Runs the network once. tile is [3, height, width] of size, which is 512 × 512 for a network without a reach; the
    /// result is [3, 4 height, 4 width], valid until the next run. The same tile gives the same numbers whatever the
    /// number of threads. A stop request ends a run that has begun. Throws
    /// UpscaleStopped, ModelError with the engine's own text or when the result is of another size, and the provider
    /// errors "No result from RealESRGAN model" and "Failed to convert upscaled tile to CGImage" when what came out is
    /// nothing or no picture.
    [[nodiscard]] std::span<const float> run(std::span<const float> tile, const std::stop_token &stop,
                                             QSize size = {TileGrid::kTileEdge, TileGrid::kTileEdge});

    /// What is loaded, in a line: "float32, tiles of any size, in \"input\", out \"output\"".
    [[nodiscard]] QString description() const;

    /// The ways to compute on a graphics card that the engine was built with, best first. Whether there is a card, and
    /// a driver for it, is another matter.
    [[nodiscard]] static QStringList cardProviders();

  private:
    struct Engine;
    std::unique_ptr<Engine> m_engine;
};

} // namespace quorvane
