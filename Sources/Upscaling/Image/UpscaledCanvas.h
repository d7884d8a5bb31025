#pragma once

#include "Upscaling/Image/PngEncoder.h"
#include "Upscaling/Image/TileGrid.h"

#include <QImage>

#include <future>

namespace quorvane {

/// The large picture that the tiles are laid into, as far as anybody has to hold it: one row of tiles. A row that is
/// complete is checked against the source and compressed on a thread of its own while the network works on the next
/// row's first tile; its memory is free again before that tile's pixels arrive. What the padding became is never
/// stored.
///
/// Tiles come in reading order. Failures are provider errors; one found while compressing is thrown by the next call.
class UpscaledCanvas
{
  public:
    /// The most pixels that the canvas with its padding may have: 256 tiles, or a square of 32768.
    static constexpr qint64 kMostPixels = qint64(1) << 30;

    /// source has four bytes a pixel and outlives the canvas.
    explicit UpscaledCanvas(const QImage &source);
    ~UpscaledCanvas();
    UpscaledCanvas(const UpscaledCanvas &) = delete;
    UpscaledCanvas &operator=(const UpscaledCanvas &) = delete;
    UpscaledCanvas(UpscaledCanvas &&) = delete;
    UpscaledCanvas &operator=(UpscaledCanvas &&) = delete;

    /// Lays an enlarged tile, Format_RGBX8888, which begins at corner, into column tx of row ty. After the last column
    /// the row is handed over.
    void place(const QImage &tile, int tx, int ty, QPoint corner = {});

    /// The finished PNG, after the last tile.
    [[nodiscard]] QByteArray finish();

  private:
    void writeRow(int ty);
    void waitForWriting();

    const QImage &m_source;
    TileGrid m_grid;
    QImage m_row;
    PngEncoder m_encoder;
    std::future<void> m_writing;
};

} // namespace quorvane
