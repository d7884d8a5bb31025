#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace quorvane {

class GpuWorker;

/// What computes on a graphics card, and by which of the inference engine's ways, best first.
struct GpuProgram
{
    QString worker;        ///< The path of the program.
    QStringList providers; ///< The engine's names of them.
};

/// When a card is tried, and when it is used.
struct GpuRules
{
    /// A driver takes seconds to start and to translate the network, so for less work than this a card is not tried.
    std::chrono::milliseconds leastWork = std::chrono::seconds(5);
    /// What a card may take of the time that the processor takes for the same tile. Each is measured while the other
    /// one is at work, so that a smaller gain may be chance.
    double largestShare = 2.0 / 3;
    /// For starting and two tiles; the processor goes on meanwhile.
    std::chrono::milliseconds trialLimit = std::chrono::minutes(1);
    /// A card that proved itself gets as long as the processor takes for a tile, but at least this.
    std::chrono::milliseconds leastTileLimit = std::chrono::seconds(1);

    /// Whether the tiles that are left would keep the processor long enough.
    [[nodiscard]] bool isWorthTrying(std::chrono::milliseconds processorTime, int tilesLeft) const;
    /// Whether the card's time for a tile is short enough beside the processor's.
    [[nodiscard]] bool isFaster(std::chrono::milliseconds cardTime, std::chrono::milliseconds processorTime) const;
    /// How long a card in use may take for a tile.
    [[nodiscard]] std::chrono::milliseconds tileLimit(std::chrono::milliseconds processorTime) const;
};

/// Whether agreement on this tile says anything: a picture of one colour, a black one above all, comes out right on
/// many a broken card.
[[nodiscard]] bool isTelling(const QImage &tile);

/// Whether no colour of the two results differs by more than two of its 256 steps. Half precision and another order of
/// summing stay below, and nobody sees the border between two tiles of which each was made by another one.
[[nodiscard]] bool agree(const QImage &one, const QImage &other);

/// The graphics card in one upscale: tried in the background on a tile that the processor has done, and in use once it
/// gave the same in less time. Nothing that goes wrong with it is an error: the processor does that tile and all
/// others.
///
/// Lives on the thread that upscales, and takes its worker along when it goes.
class Gpu
{
  public:
    /// program may be nothing, for a machine without a card. model is the network's file.
    Gpu(std::optional<GpuProgram> program, QString model, std::stop_token stop, GpuRules rules = {});
    ~Gpu();
    Gpu(const Gpu &) = delete;
    Gpu &operator=(const Gpu &) = delete;
    Gpu(Gpu &&) = delete;
    Gpu &operator=(Gpu &&) = delete;

    /// What the card makes of a tile, as upscaleTileWithModel() gives it; null while it is not in use.
    /// From the tile's top left corner, part of it is picture and the rest is padding.
    [[nodiscard]] QImage upscaleTile(const QImage &tile, QSize part);

    /// To be told of every tile that the processor did; starts the trial when it is time.
    void processorDid(const QImage &tile, const QImage &upscaled, std::chrono::milliseconds time, int tilesLeft);

    /// Whether the next tile goes to the card.
    [[nodiscard]] bool isInUse();

  private:
    [[nodiscard]] bool passesTrial(const QImage &tile, const QImage &expected);
    [[nodiscard]] QImage enlarge(const QImage &tile, std::chrono::milliseconds limit);
    void giveUp();

    std::optional<GpuProgram> m_program; ///< Nothing once it has been tried.
    QString m_model;
    std::stop_token m_stop;
    GpuRules m_rules;
    std::chrono::milliseconds m_processorTime = {};
    std::unique_ptr<GpuWorker> m_worker;
    std::optional<std::stop_callback<std::function<void()>>> m_onStop;
    std::future<bool> m_trial;
    std::vector<float> m_result;
};

} // namespace quorvane
