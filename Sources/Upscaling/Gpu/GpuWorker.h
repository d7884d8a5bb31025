#pragma once

#include "Platform/Failure.h"

#include <QSize>
#include <QStringList>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <sys/types.h>

namespace quorvane {

/// A process of its own that runs tiles through the network on a graphics card, so that no driver's crash, leak or
/// chatter reaches this program. The program it runs reads tiles, each with its size, and writes results as bare
/// numbers without anything around them; see GpuWorkerMain.cpp.
///
/// Whatever goes wrong ends the process and is told by run() alone. It is started by the constructor and dies with the
/// thread that called it, so it serves one upscale.
class GpuWorker
{
  public:
    /// What comes before each tile.
    struct Header
    {
        std::int32_t width = 0;
        std::int32_t height = 0;

        /// Three numbers a pixel; 0 for a size that no tile has.
        [[nodiscard]] std::size_t tileSize() const;
        [[nodiscard]] std::size_t resultSize() const; ///< The same of what the tile becomes.
    };

    GpuWorker(const QString &program, const QStringList &arguments);
    /// Ends the process, whatever it does.
    ~GpuWorker();
    GpuWorker(const GpuWorker &) = delete;
    GpuWorker &operator=(const GpuWorker &) = delete;
    GpuWorker(GpuWorker &&) = delete;
    GpuWorker &operator=(GpuWorker &&) = delete;

    /// Fills result, 16 times as long as tile, with what the process makes of tile, which is [3, height, width] of
    /// size. Fails when it is gone, gives anything but a result, or is not done within limit; then it is never asked
    /// again. The failure's words are for the log. One thread at a time.
    [[nodiscard]] Result<> run(std::span<const float> tile, QSize size, std::span<float> result,
                               std::chrono::milliseconds limit) const;

    /// Makes a run in progress and all later ones fail. Any thread may call it.
    void end() const;

  private:
    pid_t m_process = -1;
    int m_socket = -1;
};

} // namespace quorvane
