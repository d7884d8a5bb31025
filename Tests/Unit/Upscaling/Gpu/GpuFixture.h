#pragma once

#include "Support/WaitFor.h"
#include "Unit/Upscaling/UpscalingTestSupport.h"
#include "Upscaling/Gpu/Gpu.h"
#include "Upscaling/Image/ImageDecoding.h"
#include "Upscaling/Image/UpscaleErrors.h"
#include "Upscaling/Network/SuperResolutionModel.h"

#include <gtest/gtest.h>

namespace quorvane {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;
/// Whatever takes as long as it likes is tried and counts as faster.
constexpr GpuRules kAnyTime{
    .leastWork = milliseconds(0), .largestShare = 1e9, .trialLimit = hours(1), .leastTileLimit = hours(1)};
inline const QString kNetwork = QStringLiteral(QUORVANE_TEST_DATA "/models/nearest.onnx");

/// Misbehaves from the tile of that number on. The trial takes two.
inline GpuProgram cardThat(const char *behaviour, int tile)
{
    return {QStringLiteral(GPU_WORKER_DOUBLE), {QLatin1String(behaviour), QString::number(tile)}};
}

inline GpuProgram realCard(const char *provider)
{
    return {QStringLiteral(GPU_WORKER), {QLatin1String(provider)}};
}

/// Four tiles, the last of them with padding.
inline QImage fourTiles()
{
    return positions(2000, 40);
}

struct CardRun
{
    QImage picture;
    bool passedTrial = false;
    bool inUseAtTheEnd = false;
};

/// Enlarges the picture, waiting after its first tile until it is decided whether the card is used.
inline CardRun upscaleWith(const GpuProgram &program, const GpuRules &rules = kAnyTime,
                           const std::stop_token &stop = {}, const std::function<void()> &onceInUse = {})
{
    CardRun run;
    SuperResolutionModel model(kNetwork, 2);
    Gpu card(program, kNetwork, stop, rules);
    const auto decide = [&](UpscaleProgress progress) {
        if (progress.tilesDone == 1) {
            EXPECT_TRUE(waitFor([&] { return card.isInUse() || childProcesses().isEmpty(); }, std::chrono::minutes(2)));
            run.passedTrial = card.isInUse();
            if (onceInUse) {
                onceInUse();
            }
        }
    };
    const QImage source = decodeImage(encoded(fourTiles()));
    run.picture = decoded(tileUpscaleWithModel(source, model, card, {.stop = stop, .onProgress = decide}));
    run.inUseAtTheEnd = card.isInUse();
    return run;
}

inline QImage flat(QRgb color)
{
    QImage image(512, 512, QImage::Format_RGBX8888);
    image.fill(color);
    return image;
}

} // namespace quorvane
