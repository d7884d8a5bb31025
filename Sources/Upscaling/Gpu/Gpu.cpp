#include "Upscaling/Gpu/Gpu.h"

#include "Platform/Logging.h"
#include "Upscaling/Gpu/GpuWorker.h"
#include "Upscaling/Image/Resemblance.h"
#include "Upscaling/Image/TileGrid.h"
#include "Upscaling/Image/TilePixels.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdlib>
#include <exception>

namespace quorvane {

namespace {

/// In steps of 256.
constexpr int kTellingSpread = 64;
constexpr int kLargestDifference = 2;

} // namespace

bool GpuRules::isWorthTrying(std::chrono::milliseconds processorTime, int tilesLeft) const
{
    return tilesLeft > 0 && processorTime * tilesLeft >= leastWork;
}

bool GpuRules::isFaster(std::chrono::milliseconds cardTime, std::chrono::milliseconds processorTime) const
{
    return static_cast<double>(cardTime.count()) <= largestShare * static_cast<double>(processorTime.count());
}

std::chrono::milliseconds GpuRules::tileLimit(std::chrono::milliseconds processorTime) const
{
    return std::max(leastTileLimit, processorTime);
}

bool isTelling(const QImage &tile)
{
    uchar least = 255;
    uchar most = 0;
    for (int y = 0; y < tile.height(); ++y) {
        const uchar *row = tile.constScanLine(y);
        for (qsizetype x = 0; x < tile.width(); ++x) {
            const auto [low, high] = std::minmax_element(row + 4 * x, row + 4 * x + 3);
            least = std::min(least, *low);
            most = std::max(most, *high);
        }
    }
    return most - least >= kTellingSpread;
}

bool agree(const QImage &one, const QImage &other)
{
    if (one.size() != other.size()) {
        return false;
    }
    int difference = 0;
    for (int y = 0; y < one.height(); ++y) {
        const uchar *left = one.constScanLine(y);
        const uchar *right = other.constScanLine(y);
        for (qsizetype index = 0; index < qsizetype(4) * one.width(); ++index) {
            difference = std::max(difference, std::abs(left[index] - right[index]));
        }
    }
    return difference <= kLargestDifference;
}

Gpu::Gpu(std::optional<GpuProgram> program, QString model, std::stop_token stop, GpuRules rules)
    : m_program(std::move(program))
    , m_model(std::move(model))
    , m_stop(std::move(stop))
    , m_rules(rules)
{
}

Gpu::~Gpu()
{
    giveUp();
}

QImage Gpu::upscaleTile(const QImage &tile, QSize part)
{
    if (!isInUse()) {
        return {};
    }
    QImage upscaled = enlarge(tile, m_rules.tileLimit(m_processorTime));
    const QPoint corner(0, 0);
    // A card that was lost may answer with black instead of with an error.
    if (upscaled.isNull() ||
        !resembles(tile, QRect(corner, part), upscaled.convertToFormat(QImage::Format_RGB888), corner)) {
        giveUp();
        return {};
    }
    return upscaled;
}

void Gpu::processorDid(const QImage &tile, const QImage &upscaled, std::chrono::milliseconds time, int tilesLeft)
{
    if (!m_program || upscaled.isNull() || !m_rules.isWorthTrying(time, tilesLeft) || !isTelling(tile)) {
        return;
    }
    m_processorTime = time;
    m_worker = std::make_unique<GpuWorker>(m_program->worker, QStringList{m_model} + m_program->providers);
    m_program.reset();
    m_onStop.emplace(m_stop, [worker = m_worker.get()] { worker->end(); });
    m_trial = std::async(std::launch::async, [this, tile, upscaled] { return passesTrial(tile, upscaled); });
}

bool Gpu::isInUse()
{
    if (m_trial.valid() && m_trial.wait_for(std::chrono::seconds(0)) == std::future_status::ready && !m_trial.get()) {
        giveUp();
    }
    return m_worker && !m_trial.valid();
}

/// On a thread of its own, to which the worker belongs meanwhile.
bool Gpu::passesTrial(const QImage &tile, const QImage &expected)
{
    try {
        // The first one starts the driver and translates the network.
        if (enlarge(tile, m_rules.trialLimit).isNull()) {
            return false;
        }
        QElapsedTimer timer;
        timer.start();
        const QImage found = enlarge(tile, m_rules.tileLimit(m_processorTime));
        return m_rules.isFaster(std::chrono::milliseconds(timer.elapsed()), m_processorTime) && agree(found, expected);
    } catch (const std::exception &) {
        return false;
    }
}

/// Null when the worker failed or gave something that is no number.
QImage Gpu::enlarge(const QImage &tile, std::chrono::milliseconds limit)
{
    std::vector<float> planes(std::size_t(3) * std::size_t(tile.width()) * std::size_t(tile.height()));
    planesFromTile(tile, planes);
    m_result.resize(planes.size() * TileGrid::kScale * TileGrid::kScale);
    if (const Result<> done = m_worker->run(planes, tile.size(), m_result, limit); !done) {
        qCInfo(logUpscaling).noquote() << "the graphics worker failed:" << done.failure().words;
        return {};
    }
    return tileFromPlanes(m_result, tile.size() * TileGrid::kScale);
}

void Gpu::giveUp()
{
    m_onStop.reset();
    if (m_worker) {
        m_worker->end();
    }
    if (m_trial.valid()) {
        m_trial.wait();
    }
    m_worker.reset();
    m_result = {};
}

} // namespace quorvane
