// Water is the picture above it, upside down: each place looks up the mirrored one, shifted by the slope of the waves
// there and averaged over a few heights, because rough water smears reflections upwards and not sideways. The nearer
// the water, the steeper one looks into it and the more of its own colour shows.

#include "demo-service/Painter/Water.h"

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/Sky.h"
#include "demo-service/Painter/Terrain.h"

namespace quorvane::painter {

namespace {

using Subject = Scene::Subject;

Color ownColor(const Scene &scene, float x, float down)
{
    Color shallow = rgb(0x2c5a68);
    Color deep = rgb(0x123040);
    if (scene.subject == Subject::Islands || scene.tropical) {
        shallow = rgb(0x2fd0c0);
        deep = rgb(0x0a6a9c);
    } else if (scene.subject == Subject::City) {
        shallow = rgb(0x1a1d26);
        deep = rgb(0x101218);
    }
    const float sand = 0.5F + 0.7F * fractal(x * 2.2F, down * 7, 4, scene.seed + 62);
    return mix(deep, shallow, clamp01(down * 2.0F * sand + 0.15F * sand)) * scene.palette.land *
           (daylight(scene) + 0.05F);
}

} // namespace

bool hasWater(const Scene &scene)
{
    return scene.subject == Subject::Lake || scene.subject == Subject::Sea || scene.subject == Subject::Islands ||
           scene.subject == Subject::City;
}

void paintWater(Canvas &canvas, const Scene &scene)
{
    const int first = static_cast<int>(canvas.row(scene.horizon) + 1);
    const bool rough = scene.subject == Subject::Sea || scene.subject == Subject::Islands;
    const float waves = (rough ? 0.12F : scene.subject == Subject::City ? 0.03F : 0.022F) * (scene.storm ? 2.0F : 1.0F);
    const float smear = scene.subject == Subject::City ? 1.1F : 0.22F;
    const float clearness = rough ? 0.75F : 0.5F;
    inParallel(canvas.height() - first, [&](int offset) {
        const int row = first + offset;
        const float down = canvas.y(static_cast<float>(row)) - scene.horizon;
        const float far = 1 / (down + 0.018F);
        const float v = far * 2.4F;
        for (int column = 0; column < canvas.width(); ++column) {
            const float x = canvas.x(static_cast<float>(column));
            const float u = x * far * 0.55F;
            const float swell = fractal(u * 1.1F + 3, v * 3.1F, rough ? 6 : 4, scene.seed + 60);
            const float breeze = step(-0.1F, 0.4F, fractal(x * 1.3F, v * 0.3F, 3, scene.seed + 61));
            const float slope = swell * waves * (0.35F + 0.65F * breeze) * (0.25F + 2.2F * down);
            Color mirrored;
            constexpr int kLooks = 5;
            for (int look = 0; look < kLooks; ++look) {
                const float spread =
                    (static_cast<float>(look) - 2) * waves * smear * (0.2F + 1.6F * down) * (0.4F + breeze);
                const float height = std::abs(down * 1.02F + slope * 2.2F + spread) + 0.002F;
                const float mirrorRow = std::min(canvas.row(scene.horizon - height), static_cast<float>(first - 1));
                mirrored = mirrored + canvas.sample(canvas.column(x + slope * 0.25F), mirrorRow);
            }
            mirrored = mirrored * (0.93F / kLooks);
            const float steep = clearness * step(0.0F, 0.55F, down + 0.6F * std::max(slope, 0.0F));
            Color color = mix(mirrored, ownColor(scene, x, down), steep);
            if (rough) { // The flanks of the waves, bright where they face the sky.
                const float flank = swell - fractal(u * 1.1F + 3, v * 3.1F + 0.22F, 5, scene.seed + 60);
                color = color *
                        (1 + std::clamp(flank * (scene.storm ? 2.6F : 1.2F), -0.6F, 0.9F) * step(0.0F, 0.25F, down));
            }
            const float beneath = std::exp(-std::abs(x - scene.lightX) / (0.035F + 0.42F * down));
            const float sparkle = step(0.34F, 0.62F, swell + 0.25F * noise(u * 9, v * 19, scene.seed + 63));
            const bool glints = scene.lightY < scene.horizon && !scene.storm && scene.subject != Subject::City;
            color = color + scene.palette.light *
                                (glints ? beneath * (1.1F * sparkle + 0.06F) * (scene.isNight() ? 0.45F : 1.0F) : 0.0F);
            if (rough) {
                const float foam = step(0.42F, 0.6F, swell) * step(0.08F, 0.4F, down) * (scene.storm ? 0.6F : 0.3F);
                color = mix(color, Color{0.9F, 0.95F, 1} * daylight(scene), foam);
            }
            // A thin bright line where water meets the shore.
            color = color + airLight(scene, x, scene.horizon - 0.03F) * (0.12F * std::exp(-down * 420));
            canvas.at(column, row) = color;
        }
    });
}

} // namespace quorvane::painter
