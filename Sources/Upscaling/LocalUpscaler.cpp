#include "Upscaling/LocalUpscaler.h"

#include "Platform/Logging.h"
#include "Platform/Threads/BackgroundThread.h"
#include "Platform/Threads/Mailbox.h"
#include "Platform/Threads/Worker.h"
#include "Providers/ProviderError.h"
#include "Upscaling/Gpu/FindGpu.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/Image/TileGrid.h"
#include "Upscaling/Image/TilePixels.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/Image/UpscaledCanvas.h"
#include "Upscaling/Network/ModelFiles.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <QColorSpace>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThreadPool>

#include <cstring>
#include <vector>

using namespace Qt::StringLiterals;

// The padded picture and the canvas exist only where somebody works on them: a tile is padded when it is cut, which
// gives the same pixels as cutting it out of the padded whole, and of the canvas there is one row of tiles. Held whole,
// the canvas of a 3840 × 2160 picture alone would take 640 MiB.

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(LocalUpscaler)
};

/// What the network gets for the tile in column tx, row ty: the tile with its neighbours' pixels for one that says how
/// far it looks, and with its padding for any other.
QImage cropTile(const QImage &image, const TileGrid &grid, int tx, int ty, int reach)
{
    const QImage part = image.copy(grid.seenRect(tx, ty, reach));
    if (part.isNull()) {
        throw ProviderError::invalidResponse(Tr::tr("Failed to crop tile at (%1, %2)").arg(tx).arg(ty));
    }
    return reach > 0 ? part : padImageToTile(part, TileGrid::kTileEdge, TileGrid::kTileEdge);
}

QImage onProcessor(const QImage &tile, int tilesLeft, SuperResolutionModel &model, Gpu &card,
                   const std::stop_token &stop)
{
    QElapsedTimer timer;
    timer.start();
    QImage upscaled = upscaleTileWithModel(tile, model, stop);
    card.processorDid(tile, upscaled, std::chrono::milliseconds(timer.elapsed()), tilesLeft);
    return upscaled;
}

/// Reports progress and estimates what is left from what is done.
class Stopwatch
{
  public:
    Stopwatch(int total, const std::function<void(UpscaleProgress)> &report)
        : m_total(total)
        , m_report(report)
    {
        m_running.start();
        tell(std::nullopt);
    }

    void tileDone()
    {
        ++m_done;
        tell(std::chrono::milliseconds(m_running.elapsed() * (m_total - m_done) / m_done));
    }

  private:
    void tell(std::optional<std::chrono::milliseconds> remaining) const
    {
        if (m_report) {
            m_report({m_done, m_total, remaining});
        }
    }

    int m_done = 0;
    int m_total;
    const std::function<void(UpscaleProgress)> &m_report;
    QElapsedTimer m_running;
};

} // namespace

QCoro::Task<EncodedImage> localUpscaleImage(QByteArray encoded, std::stop_token stop,
                                            std::function<void(UpscaleProgress)> onProgress)
{
    // A pool of its own, because low priority cannot be taken back from a shared thread.
    QThreadPool ownThread;
    ownThread.setMaxThreadCount(1);
    Mailbox here;
    auto tellHere = [&here, onProgress](UpscaleProgress progress) {
        here.post([onProgress, progress] { onProgress(progress); });
    };
    TileUpscaleOptions options{.threads = physicalCores(), .stop = std::move(stop)};
    if (onProgress) {
        options.onProgress = std::move(tellHere);
    }
    auto work = [encoded = std::move(encoded), options = std::move(options)]() mutable {
        // Decoding takes a moment and may start threads of Qt's shared pool, which would inherit low priority.
        const QImage image = decodeImage(std::exchange(encoded, {}));
        lowerThreadPriority();
        if (image.isNull()) {
            throw ProviderError::invalidResponse(Tr::tr("Failed to decode image for upscaling"));
        }
        options.card = findGpu();
        QElapsedTimer clock;
        clock.start();
        QByteArray png = tileUpscaleImage(image, options);
        qCInfo(logUpscaling) << image.size() << "was enlarged on this machine after" << clock.elapsed() << "ms, to"
                             << png.size() << "bytes;" << (options.card ? "with" : "without") << "a graphics card";
        return png;
    };
    QByteArray png = co_await onWorker(&ownThread, std::move(work));
    co_return EncodedImage{std::move(png), u"png"_s};
}

QByteArray tileUpscaleImage(const QImage &image, const TileUpscaleOptions &options)
{
    const std::optional<QString> path = findModel();
    if (!path) {
        throw missingModel();
    }
    SuperResolutionModel model(*path, options.threads);
    Gpu card(options.card, *path, options.stop);
    return tileUpscaleWithModel(image, model, card, options);
}

QByteArray tileUpscaleWithModel(const QImage &image, SuperResolutionModel &model, const TileUpscaleOptions &options)
{
    Gpu none({}, {}, {});
    return tileUpscaleWithModel(image, model, none, options);
}

QByteArray tileUpscaleWithModel(const QImage &image, SuperResolutionModel &model, Gpu &card,
                                const TileUpscaleOptions &options)
{
    const TileGrid grid(image.size());
    const int reach = model.reach();
    UpscaledCanvas canvas(image);
    Stopwatch stopwatch(grid.count(), options.onProgress);
    for (int ty = 0; ty < grid.rows(); ++ty) {
        for (int tx = 0; tx < grid.columns(); ++tx) {
            if (options.stop.stop_requested()) {
                throw UpscaleStopped();
            }
            const QImage tile = cropTile(image, grid, tx, ty, reach);
            const QRect seen = grid.seenRect(tx, ty, reach);
            QImage upscaled = card.upscaleTile(tile, seen.size());
            if (upscaled.isNull()) {
                const int tilesLeft = grid.count() - 1 - ty * grid.columns() - tx;
                upscaled = onProcessor(tile, tilesLeft, model, card, options.stop);
            }
            if (upscaled.isNull()) {
                throw ProviderError::invalidResponse(
                    Tr::tr("The RealESRGAN model gave values that are not numbers for the tile at (%1, %2)")
                        .arg(tx)
                        .arg(ty));
            }
            canvas.place(upscaled, tx, ty, (grid.sourceRect(tx, ty).topLeft() - seen.topLeft()) * TileGrid::kScale);
            stopwatch.tileDone();
        }
    }
    return canvas.finish();
}

QImage padImageToTile(const QImage &image, int width, int height)
{
    if (image.size() == QSize(width, height)) {
        return image;
    }
    QImage padded(width, height, QImage::Format_RGBA8888_Premultiplied);
    if (padded.isNull()) {
        throw ProviderError::invalidResponse(Tr::tr("Failed to create padding context"));
    }
    padded.fill(Qt::transparent);
    padded.setColorSpace(image.colorSpace());
    for (int y = 0; y < image.height(); ++y) {
        std::memcpy(padded.scanLine(y), image.constScanLine(y),
                    std::size_t(4) * static_cast<std::size_t>(image.width()));
    }
    return padded;
}

QImage upscaleTileWithModel(const QImage &tile, SuperResolutionModel &model, const std::stop_token &stop)
{
    std::vector<float> planes(std::size_t(3) * std::size_t(tile.width()) * std::size_t(tile.height()));
    planesFromTile(tile, planes);
    return tileFromPlanes(model.run(planes, stop, tile.size()), tile.size() * TileGrid::kScale);
}

} // namespace quorvane
