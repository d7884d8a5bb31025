// A tree is a test for a place, inside or not; only its bounding box is looked at.

#include "demo-service/Painter/SingleTree.h"

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/Terrain.h"

namespace quorvane::painter {

namespace {

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
    const float out = std::sqrt(dx * dx + 0.0002F);
    // Branches: whorls get longer downwards and each hangs a little; needles fringe them.
    const float needles = fractal(dx * 190, down * 170, 3, tree.seed + 2);
    const float whorl =
        down * 25 + 0.9F * noise(down * 9, static_cast<float>(side) * 5, tree.seed) - out * 15 + 0.35F * needles;
    const float inWhorl = whorl - static_cast<float>(floorToInt(whorl));
    const float length = 0.75F + 0.5F * random(floorToInt(whorl), side, tree.seed + 1);
    const float fringe = 0.012F * needles * step(0, 0.15F, down);
    const float branch = 0.18F * std::pow(down, 0.85F) * length * (0.3F + 0.7F * inWhorl) + fringe;
    const float trunk = 0.003F + 0.009F * down;
    const float width = std::max(down < 0.96F ? branch : 0.0F, trunk);
    return {(width - std::abs(dx)) * tree.height, clamp01(1 - inWhorl + 0.35F * needles), down >= 0.96F};
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

} // namespace

void paintTree(Canvas &canvas, const Scene &scene, const Tree &tree, TreeKind kind)
{
    Look (*const lookAt)(const Tree &, float, float) = kind == TreeKind::Conifer ? conifer
                                                       : kind == TreeKind::Palm  ? palm
                                                                                 : broadleaf;
    const int left = std::max(static_cast<int>(canvas.column(tree.x - 0.8F * tree.height)), 0);
    const int right = std::min(static_cast<int>(canvas.column(tree.x + 0.8F * tree.height)), canvas.width() - 1);
    const int top = std::max(static_cast<int>(canvas.row(tree.foot - 1.4F * tree.height)), 0);
    const int bottom = std::min(static_cast<int>(canvas.row(tree.foot)), canvas.height() - 1);
    const Color light = scene.palette.land * daylight(scene);
    const float side = scene.lightX < tree.x ? -1.0F : 1.0F;
    const Color leafLit = scene.autumn                ? rgb(0xc9701e)
                          : scene.tropical            ? rgb(0x5f8f38)
                          : kind == TreeKind::Conifer ? rgb(0x34503c)
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

} // namespace quorvane::painter
