// The sky is put together at every place by itself: gradient and glow, then stars, the milky way, aurora and moons
// behind the clouds, and the clouds as fractal noise on a plane overhead, seen in perspective. A second look at the
// noise a bit nearer to the light tells which edges are lit.

#include "demo-service/Painter/Sky.h"

#include "demo-service/Painter/Noise.h"

namespace quorvane::painter {

namespace {

using Time = Scene::Time;

float distance(float dx, float dy)
{
    return std::sqrt(dx * dx + dy * dy);
}

Color aurora(const Scene &scene, float x, float y)
{
    const Color low = scene.accentStrength > 0 ? scene.accent : rgb(0x3dffa0);
    const Color high = rgb(0x8a4dff);
    Color sum;
    for (int i = 0; i < 3; ++i) {
        const auto seed = scene.seed + 900U + static_cast<uint32_t>(i) * 7U;
        const float sway = fractal(x * 0.9F + 3.1F * static_cast<float>(i), 0.3F, 3, seed);
        const float foot = scene.horizon - 0.16F - 0.09F * static_cast<float>(i) + 0.3F * sway;
        const float above = foot - y;
        // The rays hang along the curtain, so they lean with it.
        const float ray = 0.55F + 0.6F * noise(x * 16 + 5 * sway + y * 0.8F, 2.0F * sway, seed + 3) +
                          0.35F * noise(x * 52 + 9 * sway, 0.7F, seed + 4);
        const float reach = 0.11F + 0.09F * noise(x * 2.3F, 0.5F, seed + 5);
        const float body = above > 0 ? std::exp(-above / reach) : std::exp(above / 0.012F);
        const float presence = step(-0.35F, 0.25F, noise(x * 0.8F + 7, 1.3F * static_cast<float>(i), seed + 6));
        const float strength = std::max(ray, 0.08F) * body * presence * (0.95F - 0.2F * static_cast<float>(i));
        sum = sum + mix(low, high, step(0.03F, 0.26F, above)) * strength;
    }
    return sum * 0.75F;
}

/// A disc with craters, lit from the side of the main light.
Color withMoons(const Scene &scene, Color sky, float x, float y, float pixel)
{
    for (int i = 0; i < scene.moons - 1; ++i) {
        const float radius = 0.045F - 0.017F * static_cast<float>(i);
        const float dx = x + scene.lightX * (0.9F - 0.5F * static_cast<float>(i));
        const float dy = y - 0.16F - 0.1F * static_cast<float>(i);
        const float from = distance(dx, dy);
        const float lit = step(-0.3F, 0.8F, (dx * scene.lightX - dy * 0.4F) / (radius * 0.6F));
        const Color face =
            scene.palette.light * ((0.15F + 0.75F * lit) * (0.85F + 0.3F * fractal(dx * 60, dy * 60, 3, 5)));
        sky = mix(sky, face, clamp01((radius - from) / pixel + 0.5F));
    }
    return sky;
}

Color withLightSource(const Scene &scene, Color sky, float x, float y, float pixel)
{
    if (scene.time == Time::Day || scene.time == Time::Dusk || scene.storm || !scene.showsLight()) {
        return sky;
    }
    const float radius = scene.isNight() ? 0.034F : 0.026F;
    const float dx = x - scene.lightX;
    const float dy = y - scene.lightY;
    const float inside = clamp01((radius - distance(dx, dy)) / std::max(pixel, 0.0015F) + 0.5F);
    if (inside <= 0) {
        return sky;
    }
    const float seas = scene.isNight() ? 0.92F + 0.5F * std::min(fractal(dx * 45, dy * 45, 4, 77), 0.0F) : 3.0F;
    return mix(sky, scene.palette.light * seas, inside);
}

/// A bolt from the clouds to the horizon, and a branch of it.
Color lightning(const Scene &scene, float x, float y)
{
    const uint32_t seed = scene.seed + 950;
    const float foot = -1.1F * scene.lightX;
    const auto path = [&](float at, uint32_t which) {
        return 0.16F * noise(at * 3.1F, 1, seed + which) + 0.05F * noise(at * 11, 2, seed + which) +
               0.02F * noise(at * 37, 3, seed + which);
    };
    const float fork = 0.26F;
    const float bolt = std::abs(x - foot - path(y, 0) + path(scene.horizon, 0));
    const float forkX = foot + path(fork, 0) - path(scene.horizon, 0);
    const float branch = std::abs(x - forkX - 0.55F * (y - fork) - path(y, 9) + path(fork, 9));
    float strength = step(0.02F, 0.12F, y) * (1.1F * std::exp(-bolt * 700) + 0.16F * std::exp(-bolt * 22));
    if (y > fork && y < 0.46F) {
        strength += step(0.46F, 0.36F, y) * 0.8F * std::exp(-branch * 900);
    }
    return rgb(0xd8dcff) * (2.2F * strength);
}

struct Cloud
{
    float cover;
    Color color;
};

Cloud cloudsAt(const Scene &scene, float x, float y, Color air)
{
    const Palette &p = scene.palette;
    const float above = scene.horizon - y;
    const float far = 1 / (above + 0.1F);
    const float u = x * far * 1.15F + scene.choose(20, 0, 50);
    const float v = far * 1.3F;
    const float bend = 0.5F * noise(u * 0.7F, v * 0.7F, scene.seed + 31);
    const auto density = [&](float du, float dv) {
        return fractal((u + du) * 0.85F + bend, (v + dv) * 1.1F + bend, 6, scene.seed + 32);
    };
    const float threshold = mix(0.42F, -0.5F, scene.cloudiness);
    const float here = density(0, 0) - threshold;
    if (here <= 0) {
        return {0, air};
    }
    const float dx = scene.lightX - x;
    const float dy = scene.lightY - y;
    const float away = distance(dx, dy) + 0.05F;
    const float towards = density(0.16F * dx / away * far * 0.35F, -0.16F * dy / away * far * 0.5F) - threshold;
    const float lit = clamp01(0.55F + 2.2F * (here - towards) - 0.45F * here);
    const float nearLight = std::exp(-away * 2.6F);
    Color color = mix(p.cloudShade, p.cloudLit, lit);
    color = color + p.light * (nearLight * (0.25F + 0.9F * lit) * (scene.isNight() ? 0.25F : 0.55F));
    const float distanceHaze = step(0.3F, 0.0F, above);
    return {step(0.0F, 0.3F, here) * step(0.0F, 0.07F, above), mix(color, air, 0.75F * distanceHaze)};
}

/// glare is how much of the brightest light, close to sun or moon, is seen.
Color airWithGlare(const Scene &scene, float x, float y, float glare)
{
    const Palette &p = scene.palette;
    const float up = clamp01((scene.horizon - y) / scene.horizon);
    const float t = std::pow(up, 0.75F);
    Color color = t < 0.42F ? mix(p.horizon, p.middle, step(0.0F, 0.42F, t) * 0.5F + 0.5F * t / 0.42F)
                            : mix(p.middle, p.zenith, 0.5F * step(0.42F, 1.0F, t) + 0.5F * (t - 0.42F) / 0.58F);
    const float dx = x - scene.lightX;
    const float dy = y - scene.lightY;
    const float away = distance(dx, dy);
    const float veil = scene.storm ? 0.3F : 1.0F;
    switch (scene.time) {
    case Time::Night:
        if (scene.subject == Scene::Subject::City) {
            // The lamps below light the air.
            const Color lamps = scene.neon ? mix(rgb(0x8a3fa0), rgb(0x2f6fb0), clamp01(0.5F + x)) : rgb(0xb07a50);
            color = color * 0.6F + lamps * (0.35F * std::exp(-std::abs(scene.horizon - y) * 4.5F));
        }
        if (!scene.showsLight()) {
            return color;
        }
        return color + p.light * (veil * (0.16F * glare * std::exp(-away * 14) + 0.07F * std::exp(-away * 3.2F)));
    case Time::Day:
        return color + p.light * (veil * 0.28F * std::exp(-away * 1.5F));
    default:
        break;
    }
    // Low light scatters along the horizon much farther than upwards.
    const float along = std::exp(-distance(dx * 0.55F, 1.7F * (y - scene.horizon)) * 3.2F);
    return color +
           p.light * (veil * (0.9F * glare * std::exp(-away * 15) + 0.36F * std::exp(-away * 4.2F) + 0.16F * along));
}

} // namespace

Color airLight(const Scene &scene, float x, float y)
{
    return airWithGlare(scene, x, y, 1);
}

Color hazeLight(const Scene &scene, float x)
{
    return airWithGlare(scene, x, scene.horizon - 0.05F, 0.15F);
}

Color starLight(const Scene &scene, float x, float y, float pixel, float density)
{
    Color sum;
    // The milky way: a slanting band, grainy with stars and torn by dust.
    const float across = (y - 0.3F) * 0.75F - (x - 0.15F) * 0.6F * (scene.lightX > 0 ? 1.0F : -1.0F);
    float band = 0;
    if (scene.milkyWay) {
        band = std::exp(-across * across * 28);
        const float cloud = 0.5F + 0.9F * fractal(x * 3.4F, y * 3.4F, 6, scene.seed + 41);
        const float dust =
            step(0.1F, 0.75F, ridged(x * 2.2F + 9, y * 2.2F, 5, scene.seed + 42)) * std::exp(-across * across * 160);
        const float glow = band * std::max(cloud, 0.0F) * (1 - 0.8F * dust);
        sum = mix(rgb(0x6d7fc8), rgb(0xffd0b0), std::exp(-across * across * 60)) * (0.6F * glow);
    }
    for (int layer = 0; layer < 3; ++layer) {
        const float cells = 46.0F * static_cast<float>(1 << layer);
        const int32_t cx = floorToInt(x * cells);
        const int32_t cy = floorToInt(y * cells);
        const uint32_t seed = scene.seed + 50U + static_cast<uint32_t>(layer) * 3U;
        if (random(cx, cy, seed) > density * (0.3F + 0.7F * band)) {
            continue;
        }
        const float px = (static_cast<float>(cx) + 0.2F + 0.6F * random(cx, cy, seed + 1)) / cells;
        const float py = (static_cast<float>(cy) + 0.2F + 0.6F * random(cx, cy, seed + 2)) / cells;
        const float size = random(cx, cy, seed + 7);
        const float brightness = (0.25F + 3.2F * size * size * size * size * size) / static_cast<float>(1 + layer);
        const float radius = std::max(0.00075F + 0.0006F * size, pixel * 0.6F);
        const float from = distance(x - px, y - py) / radius;
        const Color tone = mix(rgb(0xffd2b0), rgb(0xb8d0ff), random(cx, cy, seed + 5));
        sum = sum + tone * (brightness * std::exp(-from * from));
    }
    return sum;
}

void paintSky(Canvas &canvas, const Scene &scene, const std::vector<int> &lowestRow)
{
    const float starDensity = scene.isNight() ? 0.26F : scene.time == Time::Dusk ? 0.12F : 0.0F;
    inParallel(canvas.height(), [&](int row) {
        const float y = canvas.y(static_cast<float>(row));
        for (int column = 0; column < canvas.width(); ++column) {
            if (row > lowestRow[static_cast<size_t>(column)]) {
                continue;
            }
            const float x = canvas.x(static_cast<float>(column));
            const Color air = airLight(scene, x, y);
            Color color = air;
            if (starDensity > 0) {
                const float thickAir = step(0.02F, 0.3F, scene.horizon - y);
                color = color + starLight(scene, x, y, canvas.pixel(), starDensity) * thickAir;
            }
            if (scene.aurora) {
                color = color + aurora(scene, x, y);
            }
            color = withLightSource(scene, color, x, y, canvas.pixel());
            color = withMoons(scene, color, x, y, canvas.pixel());
            if (scene.cloudiness > 0.1F) {
                const Cloud cloud = cloudsAt(scene, x, y, air);
                color = mix(color, cloud.color, cloud.cover);
            }
            if (scene.storm) {
                color = color + lightning(scene, x, y);
            }
            canvas.at(column, row) = color;
        }
    });
}

} // namespace quorvane::painter
