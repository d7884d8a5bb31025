// Single trees near the edges, dark against the light behind them. Each is a test for a place, inside or not; only its
// bounding box is looked at.

#include "demo-service/Painter/Foreground.h"

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/Terrain.h"

#include <vector>

namespace quorvane::painter {

namespace {

using Subject = Scene::Subject;

struct Tree
{
    float x;
    float foot;
    float height;
    uint32_t seed;
};

/// How far inside the conifer a place is, in picture heights; negative outside.
float insideConifer(const Tree &tree, float x, float y)
{
    const float down = (y - tree.foot + tree.height) / tree.height; // 0 at the tip, 1 at the foot.
    if (down < 0 || down > 1) {
        return -1;
    }
    const float dx = (x - tree.x) / tree.height;
    const float side = dx < 0 ? 0.0F : 1.0F;
    // Branches: whorls get longer downwards and each hangs a little.
    const float whorl = down * 21 + 0.8F * noise(down * 9, side * 5, tree.seed) - std::abs(dx) * 16;
    const float inWhorl = whorl - static_cast<float>(floorToInt(whorl));
    const float length = 0.75F + 0.5F * random(floorToInt(whorl), static_cast<int>(side), tree.seed + 1);
    const float needles = 0.012F * noise(dx * 150, down * 130, tree.seed + 2);
    const float branch =
        0.19F * std::pow(down, 0.85F) * length * (0.35F + 0.65F * inWhorl) + needles * step(0, 0.2F, down);
    const float width = std::max(down < 0.97F ? branch : 0.0F, 0.004F + 0.01F * down);
    return (width - std::abs(dx)) * tree.height;
}

/// The same for a palm: a bent trunk and fronds that arch from its top.
float insidePalm(const Tree &tree, float x, float y)
{
    const float lean = mix(-0.35F, 0.35F, random(1, 2, tree.seed));
    const float up = (tree.foot - y) / tree.height;
    const float dx = (x - tree.x) / tree.height;
    float inside = -1;
    if (up > -0.05F && up < 1) {
        const float ring = 0.0015F * std::sin(up * 160);
        inside = 0.017F - 0.007F * up + ring - std::abs(dx - lean * up * up);
    }
    const float fx = dx - lean;
    const float fy = 1 - up;
    for (int frond = 0; frond < 11; ++frond) {
        const float turn = -0.25F + 3.64F * (static_cast<float>(frond) + 0.5F * random(frond, 5, tree.seed)) / 11;
        const float reach = 0.36F + 0.12F * random(frond, 6, tree.seed);
        const float outX = -std::cos(turn);
        const float rise = 0.5F * std::sin(turn);
        const float along = fx / (outX * reach + (outX < 0 ? -0.02F : 0.02F));
        if (along < 0 || along > 1) {
            continue;
        }
        const float arch = -rise * along * 1.1F + (0.34F + 0.25F * std::abs(outX)) * along * along;
        const float leaflets = 0.55F + 0.45F * std::abs(std::sin(along * 55));
        const float below = fy - arch;
        const float width = 0.055F * std::sin(3.0F * std::min(along + 0.06F, 1.0F)) * leaflets;
        inside = std::max(inside, std::min(below + 0.006F, width - below));
    }
    return inside * tree.height;
}

void paintTree(Canvas &canvas, const Scene &scene, const Tree &tree, float (*inside)(const Tree &, float, float))
{
    const int left = std::max(static_cast<int>(canvas.column(tree.x - 0.75F * tree.height)), 0);
    const int right = std::min(static_cast<int>(canvas.column(tree.x + 0.75F * tree.height)), canvas.width() - 1);
    const int top = std::max(static_cast<int>(canvas.row(tree.foot - 1.3F * tree.height)), 0);
    const int bottom = std::min(static_cast<int>(canvas.row(tree.foot + 0.05F)), canvas.height() - 1);
    const Color light = scene.palette.land * daylight(scene);
    const float side = scene.lightX < tree.x ? -1.0F : 1.0F;
    inParallel(std::max(bottom - top + 1, 0), [&](int offset) {
        const float y = canvas.y(static_cast<float>(top + offset));
        for (int column = left; column <= right; ++column) {
            const float x = canvas.x(static_cast<float>(column));
            const float depth = inside(tree, x, y);
            const float cover = clamp01(depth / canvas.pixel() + 0.5F);
            if (cover <= 0) {
                continue;
            }
            const float lit =
                clamp01(0.25F + 0.5F * noise(x * 60, y * 90, tree.seed + 8) + 2.5F * side * (x - tree.x) / tree.height);
            Color leaves = mix(rgb(0x101a18), scene.tropical ? rgb(0x2b4a20) : rgb(0x22382c), lit);
            if (scene.snow) {
                leaves = mix(leaves, rgb(0xe4ebf5), step(0.1F, 0.6F, noise(x * 40, y * 70, tree.seed + 9) + 0.25F));
            }
            canvas.blend(column, top + offset, throughAir(scene, leaves * light, x, 0.03F), cover);
        }
    });
}

} // namespace

void paintForeground(Canvas &canvas, const Scene &scene)
{
    const bool palms = scene.tropical || scene.subject == Subject::Islands;
    const bool conifers = scene.subject == Subject::Lake || scene.subject == Subject::Mountains ||
                          (scene.subject == Subject::Forest && !scene.autumn);
    if (!palms && (!conifers || scene.autumn)) {
        return;
    }
    // They stand on the side away from the light, which stays free.
    const float side = scene.lightX > 0 ? -1.0F : 1.0F;
    const int count = palms ? 2 : 5;
    for (int i = 0; i < count; ++i) {
        const auto n = static_cast<float>(i);
        const float inward =
            palms ? 0.17F * n + scene.choose(80 + i, 0, 0.06F) : 0.085F * n + scene.choose(80 + i, 0, 0.05F);
        const float height = palms ? scene.choose(90 + i, 0.62F, 0.78F) - 0.14F * n
                                   : (0.8F - 0.12F * n) * scene.choose(90 + i, 0.8F, 1.1F);
        paintTree(canvas, scene, {side * (0.8F - inward), 1.03F, height, scene.seed + 800U + static_cast<uint32_t>(i)},
                  palms ? insidePalm : insideConifer);
    }
}

} // namespace quorvane::painter
