// What stands close by: single trees near one edge, dark against the light behind them, and a bank of grass before
// water. A tree is a test for a place, inside or not; only its bounding box is looked at.

#include "demo-service/Painter/Foreground.h"

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/Terrain.h"

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

/// What a tree is at a place.
struct Look
{
    float inside = -1;   ///< How far inside, in picture heights; negative outside.
    float upward = 0;    ///< How much the place faces the sky, 0 to 1: there light and snow fall.
    bool isWood = false; ///< Trunk rather than leaves.
};

Look conifer(const Tree &tree, float x, float y)
{
    const float down = (y - tree.foot + tree.height) / tree.height; // 0 at the tip, 1 at the foot.
    if (down < 0 || down > 1) {
        return {};
    }
    const float dx = (x - tree.x) / tree.height;
    const int side = dx < 0 ? 0 : 1;
    // Branches: whorls get longer downwards and each hangs a little.
    const float whorl = down * 23 + 0.8F * noise(down * 9, static_cast<float>(side) * 5, tree.seed) - std::abs(dx) * 15;
    const float inWhorl = whorl - static_cast<float>(floorToInt(whorl));
    const float length = 0.75F + 0.5F * random(floorToInt(whorl), side, tree.seed + 1);
    const float needles = 0.014F * noise(dx * 150, down * 130, tree.seed + 2);
    const float branch =
        0.18F * std::pow(down, 0.85F) * length * (0.35F + 0.65F * inWhorl) + needles * step(0, 0.2F, down);
    const float trunk = 0.003F + 0.009F * down;
    const float width = std::max(down < 0.96F ? branch : 0.0F, trunk);
    return {(width - std::abs(dx)) * tree.height, 1 - inWhorl, down >= 0.96F};
}

Look palm(const Tree &tree, float x, float y)
{
    const float lean = mix(0.12F, 0.3F, random(1, 2, tree.seed)) * (tree.x < 0 ? 1.0F : -1.0F);
    const float up = (tree.foot - y) / tree.height;
    const float dx = (x - tree.x) / tree.height;
    Look look;
    if (up > -0.05F && up < 1) {
        const float ring = 0.0012F * std::sin(up * 190);
        look = {(0.015F - 0.006F * up + ring - std::abs(dx - lean * up * up)) * tree.height, 0.5F, true};
    }
    const float fx = dx - lean;
    const float fy = 1 - up;
    constexpr int kFronds = 17;
    for (int frond = 0; frond < kFronds; ++frond) {
        const float turn = -0.5F + 4.14F * (static_cast<float>(frond) + 0.6F * random(frond, 5, tree.seed)) / kFronds;
        const float outX = -std::cos(turn);
        const float reach = (0.3F + 0.1F * random(frond, 6, tree.seed)) * (0.45F + 0.55F * std::abs(outX));
        const float along = fx / (outX < 0 ? -reach : reach);
        if (along < 0 || along > 1) {
            continue;
        }
        // It rises from the crown, then its own weight bends it down.
        const float arch = 0.36F * (-1.15F * std::sin(turn) * along + (0.55F + 0.75F * std::abs(outX)) * along * along);
        const float below = fy - arch;
        const float leaflets = 0.5F + 0.5F * std::abs(std::sin(along * 48 + 5 * below * 40));
        const float width = 0.05F * std::sin(3.0F * std::min(along + 0.08F, 1.0F)) * leaflets;
        const float inside = std::min(below + 0.005F, width - below) * tree.height;
        if (inside > look.inside) {
            look = {inside, clamp01(1 - below / 0.03F), false};
        }
    }
    return look;
}

Look broadleaf(const Tree &tree, float x, float y)
{
    const float dx = (x - tree.x) / tree.height;
    const float up = (tree.foot - y) / tree.height;
    // The crown is a heap of balls that noise has bitten into; the branches show where it has holes.
    float ball = -1;
    float cy = 0;
    for (int i = 0; i < 9; ++i) {
        const float turn = 0.7F * static_cast<float>(i);
        const float out = 0.2F * random(i, 1, tree.seed);
        const float bx = dx - 1.25F * out * std::cos(turn);
        const float by = up - 0.63F - out * std::sin(turn);
        const float in = 0.13F + 0.08F * random(i, 2, tree.seed) - std::sqrt(bx * bx + by * by);
        if (in > ball) {
            ball = in;
            cy = by;
        }
    }
    const float leaves = ball + 0.1F * fractal(dx * 9, up * 9, 6, tree.seed + 1) - 0.01F;
    const float bend = 0.04F * noise(up * 3, 1, tree.seed);
    const float trunk = up < 0.62F ? 0.03F - 0.028F * up + 0.02F * std::exp(-up * 22) - std::abs(dx - bend) : -1.0F;
    if (leaves > 0) {
        return {leaves * tree.height, clamp01(0.45F + 2.4F * cy + 0.9F * fractal(dx * 16, up * 16, 4, tree.seed + 3)),
                false};
    }
    return {trunk * tree.height, 0.3F, true};
}

void paintTree(Canvas &canvas, const Scene &scene, const Tree &tree, Look (*lookAt)(const Tree &, float, float))
{
    const int left = std::max(static_cast<int>(canvas.column(tree.x - 0.8F * tree.height)), 0);
    const int right = std::min(static_cast<int>(canvas.column(tree.x + 0.8F * tree.height)), canvas.width() - 1);
    const int top = std::max(static_cast<int>(canvas.row(tree.foot - 1.4F * tree.height)), 0);
    const int bottom = std::min(static_cast<int>(canvas.row(tree.foot)), canvas.height() - 1);
    const Color light = scene.palette.land * daylight(scene);
    const float side = scene.lightX < tree.x ? -1.0F : 1.0F;
    const Color leafLit = scene.autumn        ? rgb(0xc9701e)
                          : scene.tropical    ? rgb(0x5f8f38)
                          : lookAt == conifer ? rgb(0x34503c)
                                              : rgb(0x587a34);
    const Color leafDark = scene.autumn ? rgb(0x4a1f10) : rgb(0x0e1a16);
    inParallel(std::max(bottom - top + 1, 0), [&](int offset) {
        const float y = canvas.y(static_cast<float>(top + offset));
        for (int column = left; column <= right; ++column) {
            const float x = canvas.x(static_cast<float>(column));
            const Look look = lookAt(tree, x, y);
            const float cover = clamp01(look.inside / canvas.pixel() + 0.5F);
            if (cover <= 0) {
                continue;
            }
            const float towards = side * (x - tree.x) / tree.height;
            const float lit =
                clamp01(0.1F + 0.5F * look.upward + 1.6F * towards + 0.25F * noise(x * 70, y * 90, tree.seed + 8));
            Color color = look.isWood ? mix(rgb(0x1c1512), rgb(0x5a4636), lit) : mix(leafDark, leafLit, lit);
            if (scene.snow && !look.isWood) {
                color = mix(color, rgb(0xe4ebf5),
                            step(0.45F, 0.8F, look.upward + 0.2F * noise(x * 90, y * 90, tree.seed + 9)));
            }
            canvas.blend(column, top + offset, throughAir(scene, color * light, x, 0.03F), cover);
        }
    });
}

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
                  broadleaf);
        return;
    }
    if (scene.subject == Subject::Islands || (scene.tropical && scene.subject != Subject::Desert)) {
        for (int i = 0; i < 2; ++i) {
            const auto n = static_cast<float>(i);
            paintTree(canvas, scene,
                      {side * (0.83F - 0.1F * n), 1.04F, scene.choose(90 + i, 0.8F, 0.9F) - 0.26F * n,
                       scene.seed + 800U + static_cast<uint32_t>(i)},
                      palm);
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
                  scene.autumn ? broadleaf : conifer);
    }
}

} // namespace quorvane::painter
