#include "Upscaling/Image/UpscaledCanvas.h"

#include "Providers/ProviderError.h"
#include "Upscaling/Image/AlphaChannel.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/Image/Resemblance.h"

#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(UpscaledCanvas)
};

/// Room for one row of tiles, without the padding.
QImage rowOf(const TileGrid &grid)
{
    const QSize canvas = grid.canvasSize();
    QImage row;
    if (qint64(canvas.width()) * canvas.height() <= UpscaledCanvas::kMostPixels) {
        const int height = std::min(TileGrid::kResultEdge, grid.resultSize().height());
        row = QImage(grid.resultSize().width(), height, QImage::Format_RGB888);
    }
    if (row.isNull()) {
        throw ProviderError::invalidResponse(Tr::tr("Failed to create output context"));
    }
    return row;
}

} // namespace

UpscaledCanvas::UpscaledCanvas(const QImage &source)
    : m_source(source)
    , m_grid(source.size())
    , m_row(rowOf(m_grid))
    , m_encoder(m_grid.resultSize(), source.hasAlphaChannel() ? PngPixels::Rgba : PngPixels::Rgb, iccProfileOf(source))
{
}

UpscaledCanvas::~UpscaledCanvas()
{
    if (m_writing.valid()) {
        m_writing.wait();
    }
}

void UpscaledCanvas::place(const QImage &tile, int tx, int ty, QPoint corner)
{
    waitForWriting();
    const QSize size = m_grid.sourceRect(tx, ty).size() * TileGrid::kScale;
    const qsizetype left = qsizetype(tx) * TileGrid::kResultEdge;
    for (int y = 0; y < size.height(); ++y) {
        const uchar *from = tile.constScanLine(corner.y() + y) + qsizetype(4) * corner.x();
        uchar *to = m_row.scanLine(y) + 3 * left;
        for (qsizetype x = 0; x < size.width(); ++x) {
            to[3 * x] = from[4 * x];
            to[3 * x + 1] = from[4 * x + 1];
            to[3 * x + 2] = from[4 * x + 2];
        }
    }
    if (tx == m_grid.columns() - 1) {
        m_writing = std::async(std::launch::async, [this, ty] { writeRow(ty); });
    }
}

QByteArray UpscaledCanvas::finish()
{
    waitForWriting();
    return m_encoder.finish();
}

void UpscaledCanvas::waitForWriting()
{
    if (m_writing.valid()) {
        m_writing.get();
    }
}

void UpscaledCanvas::writeRow(int ty)
{
    for (int tx = 0; tx < m_grid.columns(); ++tx) {
        if (!resembles(m_source, m_grid.sourceRect(tx, ty), m_row, QPoint(tx * TileGrid::kResultEdge, 0))) {
            throw ProviderError::invalidResponse(
                Tr::tr("The upscaled image does not resemble the original at tile (%1, %2)").arg(tx).arg(ty));
        }
    }
    const auto width = static_cast<std::size_t>(m_row.width());
    const bool withAlpha = m_source.hasAlphaChannel();
    std::vector<std::uint8_t> alpha(withAlpha ? width : 0);
    std::vector<std::uint8_t> joined(4 * alpha.size());
    const int height = m_grid.sourceRect(0, ty).height() * TileGrid::kScale;
    for (int y = 0; y < height; ++y) {
        const std::span<const std::uint8_t> colors(m_row.constScanLine(y), 3 * width);
        if (withAlpha) {
            enlargedAlphaRow(m_source, ty * TileGrid::kResultEdge + y, alpha);
            joinColorsAndAlpha(colors, alpha, joined);
        }
        m_encoder.writeRow(withAlpha ? std::span<const std::uint8_t>(joined) : colors);
    }
}

} // namespace quorvane
