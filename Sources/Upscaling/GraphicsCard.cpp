#include "Upscaling/GraphicsCard.h"

#include "Upscaling/CardWorker.h"
#include "Upscaling/Resemblance.h"
#include "Upscaling/TileGrid.h"
#include "Upscaling/TilePixels.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdlib>
#include <exception>

namespace quorvane {

namespace {

static_assert(CardWorker::kTileSize == std::size_t(3) * TileGrid::kTileEdge * TileGrid::kTileEdge);
static_assert(CardWorker::kResultSize == std::size_t(3) * TileGrid::kResultEdge * TileGrid::kResultEdge);

/// In steps of 256.
constexpr int kTellingSpread = 64;
constexpr int kLargestDifference = 2;

} // namespace

bool CardRules::isWorthTrying(std::chrono::milliseconds processorTime, int tilesLeft) const
{
    return tilesLeft > 0 && processorTime * tilesLeft >= leastWork;
}

bool CardRules::isFaster(std::chrono::milliseconds cardTime, std::chrono::milliseconds processorTime) const
{
    return static_cast<double>(cardTime.count()) <= largestShare * static_cast<double>(processorTime.count());
}

std::chrono::milliseconds CardRules::tileLimit(std::chrono::milliseconds processorTime) const
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

GraphicsCard::GraphicsCard(std::optional<CardProgram> program, QString model, std::stop_token stop, CardRules rules)
    : m_program(std::move(program))
    , m_model(std::move(model))
    , m_stop(std::move(stop))
    , m_rules(rules)
{
}

GraphicsCard::~GraphicsCard()
{
    giveUp();
}

QImage GraphicsCard::upscaleTile(const QImage &tile, QSize part)
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

void GraphicsCard::processorDid(const QImage &tile, const QImage &upscaled, std::chrono::milliseconds time,
                                int tilesLeft)
{
    if (!m_program || upscaled.isNull() || !m_rules.isWorthTrying(time, tilesLeft) || !isTelling(tile)) {
        return;
    }
    m_processorTime = time;
    m_worker = std::make_unique<CardWorker>(m_program->worker, QStringList{m_model} + m_program->providers);
    m_program.reset();
    m_onStop.emplace(m_stop, [worker = m_worker.get()] { worker->end(); });
    m_trial = std::async(std::launch::async, [this, tile, upscaled] { return passesTrial(tile, upscaled); });
}

bool GraphicsCard::isInUse()
{
    if (m_trial.valid() && m_trial.wait_for(std::chrono::seconds(0)) == std::future_status::ready && !m_trial.get()) {
        giveUp();
    }
    return m_worker && !m_trial.valid();
}

/// On a thread of its own, to which the worker belongs meanwhile.
bool GraphicsCard::passesTrial(const QImage &tile, const QImage &expected)
{
    try {
        m_result.resize(CardWorker::kResultSize);
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
QImage GraphicsCard::enlarge(const QImage &tile, std::chrono::milliseconds limit)
{
    std::vector<float> planes(CardWorker::kTileSize);
    planesFromTile(tile, planes);
    const bool done = m_worker->run(planes, m_result, limit);
    return done ? tileFromPlanes(m_result, QSize(TileGrid::kResultEdge, TileGrid::kResultEdge)) : QImage();
}

void GraphicsCard::giveUp()
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
