#include "demo-service/Painter/Space.h"

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/Sky.h"

namespace quorvane::painter {

namespace {

struct Globe
{
    float x;
    float y;
    float radius;
    Color light;
    Color dark;
    float bands; ///< 0 for a rocky one, 1 for one of gas.
    uint32_t seed;
};

Color nebula(const Scene &scene, float x, float y)
{
    const uint32_t seed = scene.seed + 300;
    const float bendX = fractal(x * 1.1F, y * 1.1F, 4, seed);
    const float bendY = fractal(x * 1.1F + 5, y * 1.1F + 3, 4, seed + 7);
    const float gas = 0.5F + fractal(x * 1.5F + 1.7F * bendX, y * 1.5F + 1.7F * bendY, 6, seed + 13);
    const float veil = ridged(x * 1.2F + bendX, y * 1.2F + bendY, 6, seed + 19);
    const float dark = step(0.0F, 0.45F, fractal(x * 2.1F - bendY, y * 2.1F + bendX, 5, seed + 23) + 0.22F);
    const Color warm = scene.accent;
    const Color cold = mix(rgb(0x2d5bd0), rgb(0x8a3fd0), clamp01(0.5F + bendX));
    const float strength = clamp01(gas * gas * 0.9F) * (0.35F + 0.65F * dark);
    return mix(cold, warm, clamp01(0.5F + 1.3F * bendY)) * (0.85F * strength * strength) +
           rgb(0xffe0c8) * (0.28F * veil * veil * veil * strength) + rgb(0x05060f);
}

void paintGlobe(Canvas &canvas, const Scene &scene, const Globe &globe)
{
    const float lightX = globe.x < 0 ? 0.75F : -0.75F;
    inParallel(canvas.height(), [&](int row) {
        const float dy = (canvas.y(static_cast<float>(row)) - globe.y) / globe.radius;
        for (int column = 0; column < canvas.width(); ++column) {
            const float dx = (canvas.x(static_cast<float>(column)) - globe.x) / globe.radius;
            const float from = std::sqrt(dx * dx + dy * dy);
            if (from > 1.35F) {
                continue;
            }
            const float toLight = dx * lightX - dy * 0.5F;
            const float air = from < 1 ? std::pow(from, 9.0F) * 0.5F : 0.5F * std::exp(-(from - 1) * 26);
            const Color rim = mix(globe.light, rgb(0xbcd8ff), 0.45F) * (air * step(-0.45F, 0.75F, toLight));
            if (from < 1) {
                const float dz = std::sqrt(1 - from * from);
                // Places on the ball, flattened as a map.
                const float u = dx / (0.55F + 0.45F * dz) * 1.6F;
                const float v = dy / (0.55F + 0.45F * dz) * 1.6F;
                const float bend = fractal(u * 1.5F, v * 2.5F, 5, globe.seed);
                const float ground = fractal(u * 2.1F + bend, v * 2.1F, 7, globe.seed + 9);
                const float stripe = 0.5F + 0.5F * std::sin(v * 11 + 2.4F * bend);
                const float tone = mix(clamp01(0.5F + 1.1F * ground), stripe, globe.bands);
                const float relief =
                    ground - fractal(u * 2.1F + bend + 0.03F * lightX, v * 2.1F - 0.02F, 7, globe.seed + 9);
                const float facing = toLight + 0.45F * dz + 2.4F * relief * (1 - globe.bands);
                const float lit = step(-0.12F, 0.95F, facing);
                const float cover = clamp01((1 - from) * globe.radius / canvas.pixel() + 0.5F);
                canvas.blend(column, row, mix(globe.dark, globe.light, tone) * (1.25F * lit + 0.006F), cover);
            }
            canvas.at(column, row) = canvas.at(column, row) + rim;
        }
    });
    static_cast<void>(scene);
}

} // namespace

void paintSpace(Canvas &canvas, const Scene &scene)
{
    inParallel(canvas.height(), [&](int row) {
        const float y = canvas.y(static_cast<float>(row));
        for (int column = 0; column < canvas.width(); ++column) {
            const float x = canvas.x(static_cast<float>(column));
            canvas.at(column, row) = nebula(scene, x, y) + starLight(scene, x, y, canvas.pixel(), 0.25F);
        }
    });
    const float side = scene.choose(60, 0, 1) < 0.5F ? -1.0F : 1.0F;
    const bool named = scene.namesPlanet;
    const float radius = named ? scene.choose(61, 0.34F, 0.42F) : scene.choose(61, 0.12F, 0.2F);
    Globe planet{side * scene.choose(62, 0.18F, 0.34F), named ? 0.58F : 0.36F, radius,          scene.accent,
                 scene.accent * scene.accent * 0.35F,   named ? 0.0F : 1.0F,   scene.seed + 400};
    paintGlobe(canvas, scene, planet);
    const int moons = scene.moons > 0 ? scene.moons : 1;
    for (int i = 0; i < moons; ++i) {
        const auto n = static_cast<float>(i);
        paintGlobe(canvas, scene,
                   {-side * (0.3F + 0.24F * n), 0.24F + 0.2F * n, 0.075F - 0.03F * n, rgb(0xd9d2c8), rgb(0x5a534e), 0,
                    scene.seed + 500 + static_cast<uint32_t>(i)});
    }
}

} // namespace quorvane::painter
