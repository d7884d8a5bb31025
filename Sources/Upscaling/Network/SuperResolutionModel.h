#pragma once

#include <QByteArray>
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

    /// Runs the network once. tile is [3, 512, 512], the result [3, 2048, 2048], valid until the next run. The same
    /// tile gives the same numbers whatever the number of threads. A stop request ends a run that has begun. Throws
    /// UpscaleStopped, ModelError with the engine's own text or when the result is of another size, and the provider
    /// errors "No result from RealESRGAN model" and "Failed to convert upscaled tile to CGImage" when what came out is
    /// nothing or no picture.
    [[nodiscard]] std::span<const float> run(std::span<const float> tile, const std::stop_token &stop);

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
