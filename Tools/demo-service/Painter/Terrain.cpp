#include "demo-service/Painter/Terrain.h"

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/Sky.h"

namespace quorvane::painter {

namespace {

/// What all kinds of ground know: the scene, their place and from which side the light comes.
class Ground : public Layer
{
  public:
    Ground(const Scene &scene, const Place &place)
        : m_scene(scene)
        , m_place(place)
        , m_lightSide(scene.lightX < 0 ? -1.0F : 1.0F)
        , m_light(scene.palette.land * daylight(scene))
        , m_shadow(mix(scene.palette.zenith, scene.palette.middle, 0.5F) * (0.55F * daylight(scene) + 0.1F))
    {
    }

  protected:
    /// Air gathers at the foot of a slope.
    [[nodiscard]] Color distant(Color color, float x, float y) const
    {
        const float low = step(m_place.base - 0.8F * m_place.height, m_place.base + 0.02F, y);
        const float mist = m_scene.fog ? 0.75F : 0.42F;
        return throughAir(m_scene, color, x,
                          m_place.haze + (1 - m_place.haze) * mist * low * step(0, 0.35F, m_place.haze));
    }

    const Scene &m_scene;
    Place m_place;
    float m_lightSide;
    Color m_light;
    Color m_shadow;
};

class Mountains : public Ground
{
  public:
    using Ground::Ground;

    [[nodiscard]] float top(float x) const override
    {
        return m_place.base - m_place.height * (crest(x) + roughness(x * m_place.scale));
    }

    [[nodiscard]] Color shade(float x, float y, float depth) const override
    {
        // Below each peak a face turns to the light and another away, as the crest above tells; the border between them
        // wanders downwards, and gullies cut into both.
        const float u = x * m_place.scale;
        const float v = y * m_place.scale;
        const float wander = depth * (0.5F * noise(u * 2.2F, v * 2.2F, m_place.seed + 4) +
                                      0.25F * noise(u * 7, v * 5, m_place.seed + 5));
        const float at = x + wander;
        const float facing =
            m_lightSide * (crest(at - 0.012F / m_place.scale) - crest(at + 0.012F / m_place.scale)) / 0.024F;
        const float bend = 0.3F * noise(u * 2.3F, v * 2.1F, m_place.seed + 7);
        const float here = ridged(u * 2.6F + bend, v * 1.5F, 6, m_place.seed + 6);
        const float there = ridged(u * 2.6F + bend + 0.06F * m_lightSide, v * 1.5F - 0.04F, 6, m_place.seed + 6);
        const float gully = 4.2F * (here - there);
        const float lit = clamp01(0.45F + 0.42F * std::clamp(facing, -1.0F, 1.0F) + gully);

        const float altitude = (m_place.base - y) / m_place.height;
        const float snowLine = m_scene.snow ? 0.05F : 0.5F + m_scene.choose(30, -0.1F, 0.12F);
        const float snow = m_scene.tropical
                               ? 0
                               : step(0, 0.12F, altitude - snowLine + 0.5F * (here - 0.45F) - 0.25F * std::abs(gully));
        const Color green = m_scene.autumn ? rgb(0x6b5130) : m_scene.tropical ? rgb(0x4a6b38) : rgb(0x3d4a34);
        const Color rock = mix(green, rgb(0x6d6763), step(0.1F, 0.5F, altitude + 0.5F * (here - 0.5F)));
        const Color ground = mix(rock, rgb(0xf4f6fb), snow);
        return distant(ground * mix(m_shadow, m_light * 1.25F, lit), x, y);
    }

  private:
    /// The large shape: a few pointed peaks, 0 to about 1.
    [[nodiscard]] float crest(float x) const
    {
        const float u = x * m_place.scale;
        const float range = 0.62F + 0.55F * noise(u * 0.4F, 8.1F, m_place.seed + 2);
        const float peaks = 0.72F * (1 - std::abs(noise(u * 0.85F, 1.7F, m_place.seed))) +
                            0.3F * (1 - std::abs(noise(u * 2.1F, 5.3F, m_place.seed + 1)));
        return std::max(range, 0.15F) * peaks * peaks;
    }

    [[nodiscard]] float roughness(float u) const
    {
        return 0.11F * (ridged(u * 4.3F, 3.9F, 5, m_place.seed + 3) - 0.4F);
    }
};

class Dunes : public Ground
{
  public:
    using Ground::Ground;

    [[nodiscard]] float top(float x) const override { return m_place.base - m_place.height * crest(x * m_place.scale); }

    [[nodiscard]] Color shade(float x, float y, float depth) const override
    {
        // Following the crest's slope down a slant makes the planes of light and shadow that meet in a curved edge.
        const float slant = depth * (1.5F + 1.2F * noise(x * m_place.scale * 0.8F, 3.3F, m_place.seed + 4));
        const float wave = 0.1F * noise(x * 2.6F, y * 6.5F, m_place.seed + 5);
        const float at = (x + m_lightSide * (slant + wave * depth * 4)) * m_place.scale;
        const float rise = (crest(at + 0.02F) - crest(at - 0.02F)) / 0.04F;
        const float facing = -rise * m_lightSide;
        const float lit = step(-0.12F, 0.16F, facing + 0.05F * wave) * (0.72F + 0.28F * step(0, 1.4F, facing));
        const float near = 1 - m_place.haze;
        const float ripple =
            std::sin((y * 230 + x * 60 + 9 * noise(x * 3.5F, y * 9, m_place.seed + 6)) * (1.3F - 0.6F * near)) *
            step(0.55F, 1.0F, near);
        const float grain = fractal(x * 55, y * 140, 3, m_place.seed + 7);
        const Color red = m_scene.accentStrength > 0 ? mix(rgb(0xc98a55), m_scene.accent, 0.55F) : rgb(0xd79a5e);
        const Color sand = red * (1.05F + 0.07F * ripple + 0.10F * grain);
        const float down = step(0.5F, 0.0F, depth);
        return distant(sand * mix(m_shadow, m_light * 1.25F, lit * (0.75F + 0.25F * down)), x, y);
    }

  private:
    /// Between sharp tops the wind leaves round valleys.
    [[nodiscard]] float crest(float u) const
    {
        const float a = 1 - std::abs(noise(u * 0.7F + 0.2F * noise(u * 1.7F, 9, m_place.seed + 9), 2.2F, m_place.seed));
        const float b = 1 - std::abs(noise(u * 1.9F + 5, 7.2F, m_place.seed + 1));
        return 0.72F * a * a * a + 0.16F * b * b + 0.1F * noise(u * 0.5F, 1, m_place.seed + 2);
    }
};

class Hills : public Ground
{
  public:
    using Ground::Ground;

    [[nodiscard]] float top(float x) const override
    {
        const float u = x * m_place.scale;
        const float blades = 0.0035F * std::abs(noise(x * 260, 1, m_place.seed + 3)) * (1 - m_place.haze);
        return m_place.base - m_place.height * (0.55F + 0.5F * fractal(u, 2.7F, 3, m_place.seed) * 1.6F) - blades;
    }

    [[nodiscard]] Color shade(float x, float y, float depth) const override
    {
        const float u = x * m_place.scale;
        const float far = 1 / (0.1F + depth * 2.2F);
        const float soft = fractal(u * 1.4F + depth, y * 7, 4, m_place.seed + 4);
        const float blades = noise(x * 34 * far + depth * 12, depth * 30 * far, m_place.seed + 5) * (1 - m_place.haze);
        const float slope = fractal(u + 0.05F * m_lightSide, 2.7F, 3, m_place.seed) - fractal(u, 2.7F, 3, m_place.seed);
        const float lit = clamp01(0.55F - 3.4F * slope + 0.35F * soft + 0.16F * blades);
        const Color grass = m_scene.autumn ? rgb(0xa87f3a) : rgb(0x6d9440);
        Color ground = m_scene.snow ? rgb(0xeef2fa) : mix(grass, rgb(0xb8b45c), clamp01(0.35F + 0.9F * soft));
        if (!m_scene.snow) {
            ground = withFlowers(ground, x, depth);
        }
        return distant(ground * mix(m_shadow, m_light * 1.2F, lit), x, y);
    }

  private:
    /// Drifts of blossoms: dots on a plane seen in perspective.
    [[nodiscard]] Color withFlowers(Color ground, float x, float depth) const
    {
        const float far = 1 / (0.07F + depth);
        const float u = x * far * 7.5F;
        const float v = far * 11;
        const float drift = step(-0.05F, 0.35F, fractal(u * 0.05F, v * 0.12F, 3, m_scene.seed + 81));
        const int32_t cx = floorToInt(u);
        const int32_t cy = floorToInt(v);
        if (random(cx, cy, m_place.seed + 11) > 0.25F + 0.7F * drift) {
            return ground;
        }
        const float dx = u - static_cast<float>(cx) - 0.3F - 0.4F * random(cx, cy, m_place.seed + 12);
        const float dy = v - static_cast<float>(cy) - 0.3F - 0.4F * random(cx, cy, m_place.seed + 13);
        const Color petals =
            mix(m_scene.accent * 1.5F, rgb(0xfff4e0), random(cx / 9, cy / 9, m_place.seed + 14) * 0.7F);
        return mix(ground, petals, step(0.36F, 0.2F, std::sqrt(dx * dx + dy * dy)) * step(12.0F, 7.0F, far) * 0.95F);
    }
};

class Island : public Ground
{
  public:
    using Ground::Ground;

    [[nodiscard]] float top(float x) const override
    {
        return m_place.base - std::max(m_place.height * rise(x), -0.02F);
    }

    [[nodiscard]] Color shade(float x, float y, float depth) const override
    {
        const float u = x * 60;
        const float v = y * 80;
        const float leaves = fractal(u, v, 4, m_place.seed + 4);
        const float lit =
            clamp01(0.5F + 0.9F * leaves + m_lightSide * 2.0F * (rise(x - 0.02F) - rise(x + 0.02F)) - depth * 1.5F);
        const float up = m_place.base - y;
        const Color woods = mix(rgb(0x1f4a22), rgb(0x7fae4a), clamp01(0.45F + 0.8F * leaves));
        const Color ground = mix(rgb(0xf3e2b8), woods, step(0.006F, 0.013F, up + 0.006F * leaves));
        return distant(ground * mix(m_shadow, m_light * 1.2F, lit), x, y - 0.6F * m_place.height);
    }

  private:
    [[nodiscard]] float rise(float x) const
    {
        const float u = x * m_place.scale;
        const float land = noise(u, 2.4F, m_place.seed) * 0.9F - 0.05F;
        const float tops = 0.25F * ridged(u * 3, 1.2F, 4, m_place.seed + 1) * clamp01(land * 4) +
                           0.06F * std::abs(noise(x * 90, 1, m_place.seed + 2)) * clamp01(land * 12);
        return land + tops;
    }
};

} // namespace

Color throughAir(const Scene &scene, Color color, float x, float haze)
{
    const Color air = hazeLight(scene, x);
    const float grey = scene.fog ? 0.35F : 0.12F;
    return mix(color, mix(air, Color{1, 1, 1} * luminance(air), grey), clamp01(haze));
}

float daylight(const Scene &scene)
{
    switch (scene.time) {
    case Scene::Time::Night:
        return 0.3F;
    case Scene::Time::Dusk:
        return 0.5F;
    case Scene::Time::Dawn:
    case Scene::Time::Sunset:
        return 0.75F;
    default:
        return scene.storm ? 0.7F : 1.0F;
    }
}

std::unique_ptr<Layer> mountains(const Scene &scene, const Place &place)
{
    return std::make_unique<Mountains>(scene, place);
}

std::unique_ptr<Layer> dunes(const Scene &scene, const Place &place)
{
    return std::make_unique<Dunes>(scene, place);
}

std::unique_ptr<Layer> island(const Scene &scene, const Place &place)
{
    return std::make_unique<Island>(scene, place);
}

std::unique_ptr<Layer> hills(const Scene &scene, const Place &place)
{
    return std::make_unique<Hills>(scene, place);
}

} // namespace quorvane::painter
