// What is close by: a shore before the water, and trees near one edge.

#include "demo-service/Painter/Foreground.h"

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/SingleTree.h"
#include "demo-service/Painter/Terrain.h"

namespace quorvane::painter {

namespace {

using Subject = Scene::Subject;

/// Grass along the lower edge, higher on the side where the trees stand.
void paintBank(Canvas &canvas, const Scene &scene, float side)
{
    const Color light = scene.palette.land * daylight(scene);
    const uint32_t seed = scene.seed + 870;
    inParallel(canvas.width(), [&](int column) {
        const float x = canvas.x(static_cast<float>(column));
        const float ground = 1.0F - 0.075F * step(-0.25F, 0.95F, x * side) - 0.02F * fractal(x * 2.5F, 1, 4, seed);
        float blades = 0;
        for (uint32_t row = 0; row < 3; ++row) {
            const float u = x * (95 + 30 * static_cast<float>(row));
            const float across = std::abs(u - static_cast<float>(floorToInt(u)) - 0.5F);
            const float tall = random(floorToInt(u), 3, seed + row);
            blades = std::max(blades, 0.055F * tall * tall * (1 - 2 * across));
        }
        const float top = ground - blades * step(-0.4F, 0.3F, x * side);
        for (int row = std::max(static_cast<int>(canvas.row(top)), 0); row < canvas.height(); ++row) {
            const float y = canvas.y(static_cast<float>(row));
            const float tone = clamp01(0.35F + 0.5F * noise(x * 40, y * 25, seed + 5) - 6 * (y - top));
            const Color grass =
                scene.snow ? mix(rgb(0x8a94a8), rgb(0xe4ebf5), tone) : mix(rgb(0x10160f), rgb(0x3a4526), tone);
            canvas.blend(column, row, throughAir(scene, grass * light, x, 0.02F),
                         clamp01((y - top) / canvas.pixel() + 0.5F));
        }
    });
}

/// A sandy shore in the lower corner, wet and foaming where the waves run out.
void paintBeach(Canvas &canvas, const Scene &scene, float side)
{
    const Color light = scene.palette.land * daylight(scene);
    const Color sky = scene.palette.horizon * 0.5F;
    const uint32_t seed = scene.seed + 860;
    inParallel(canvas.height(), [&](int row) {
        const float y = canvas.y(static_cast<float>(row));
        if (y < scene.horizon + 0.1F) {
            return;
        }
        for (int column = 0; column < canvas.width(); ++column) {
            const float x = canvas.x(static_cast<float>(column));
            const float shore = 0.97F - 0.17F * step(-0.6F, 1.0F, x * side) + 0.03F * fractal(x * 1.7F, 1, 3, seed);
            const float lace = 0.02F * fractal(x * 9, y * 16, 4, seed + 1);
            const float up = y - shore + lace; // Above zero on the sand.
            if (up < -0.05F) {
                continue;
            }
            const float grain =
                0.1F * fractal(x * 130, y * 260, 3, seed + 2) + 0.14F * fractal(x * 5, y * 14, 3, seed + 3);
            const float dry = step(0.015F, 0.06F, up);
            const Color sand = mix(rgb(0x9c8460), rgb(0xeed9ae), dry) * (1 + grain) * light;
            const float shown = step(-0.012F, 0.008F, up);
            canvas.blend(column, row, sand + sky * (0.35F * (1 - dry)), shown);
            const float foam = std::exp(-std::abs(up) * 190) + 0.5F * std::exp(-std::abs(up + 0.025F + lace) * 240);
            canvas.blend(column, row,
                         Color{0.95F, 0.97F, 1} * (daylight(scene) * 0.95F) * mix(light, Color{1, 1, 1}, 0.5F),
                         clamp01(foam * 0.85F));
        }
    });
}

} // namespace

void paintForeground(Canvas &canvas, const Scene &scene)
{
    // They stand on the side away from the light, which stays free.
    const float side = scene.lightX > 0 ? -1.0F : 1.0F;
    if (scene.subject == Subject::Lake) {
        paintBank(canvas, scene, side);
    }
    if (scene.subject == Subject::Sea || scene.subject == Subject::Islands) {
        paintBeach(canvas, scene, side);
    }
    if (scene.subject == Subject::Meadow) {
        paintTree(canvas, scene, {side * scene.choose(85, 0.35F, 0.6F), scene.horizon + 0.16F, 0.42F, scene.seed + 800},
                  TreeKind::Broadleaf);
        return;
    }
    if (scene.subject == Subject::Islands || (scene.tropical && scene.subject != Subject::Desert)) {
        for (int i = 0; i < 2; ++i) {
            const auto n = static_cast<float>(i);
            paintTree(canvas, scene,
                      {side * (0.83F - 0.1F * n), 1.04F, scene.choose(90 + i, 0.8F, 0.9F) - 0.26F * n,
                       scene.seed + 800U + static_cast<uint32_t>(i)},
                      TreeKind::Palm);
        }
        return;
    }
    if (scene.subject != Subject::Lake && scene.subject != Subject::Mountains && scene.subject != Subject::Forest) {
        return;
    }
    const int count = scene.autumn ? 1 : 5;
    for (int i = 0; i < count; ++i) {
        const auto n = static_cast<float>(i);
        const float x = side * (0.8F - 0.085F * n - scene.choose(80 + i, 0, 0.05F));
        const float height = (0.82F - 0.12F * n) * scene.choose(90 + i, 0.8F, 1.1F);
        paintTree(canvas, scene, {x, 1.03F, scene.autumn ? 0.8F : height, scene.seed + 800U + static_cast<uint32_t>(i)},
                  scene.autumn ? TreeKind::Broadleaf : TreeKind::Conifer);
    }
}

} // namespace quorvane::painter
