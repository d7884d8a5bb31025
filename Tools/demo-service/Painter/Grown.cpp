// Slopes of trees and rows of houses: layers whose top is made of many small shapes side by side.

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/Terrain.h"

#include <algorithm>

namespace quorvane::painter {

namespace {

class Trees : public Layer
{
  public:
    Trees(const Scene &scene, const Place &place)
        : m_scene(scene)
        , m_place(place)
        , m_round(scene.autumn || scene.tropical)
        , m_treeHeight(1.5F / place.scale)
    {
    }

    [[nodiscard]] float top(float x) const override { return ground(x) - standing(x); }

    [[nodiscard]] Color shade(float x, float y, float depth) const override
    {
        const float fine = noise(x * m_place.scale * 6, y * m_place.scale * 5, m_place.seed + 6);
        const float tree = random(floorToInt(x * m_place.scale * 1.7F), 5, m_place.seed + 7);
        Color leaves = rgb(0x27402f);
        if (m_scene.autumn) {
            leaves = mix(mix(rgb(0x7a2f16), rgb(0xd9892b), tree), rgb(0x4a4a22), 0.25F + 0.3F * fine);
        } else if (m_scene.tropical) {
            leaves = rgb(0x2f6a2c);
        }
        if (m_scene.snow) {
            leaves = mix(leaves, rgb(0xdfe8f5), clamp01(0.35F + 0.9F * fine) * 0.75F);
        }
        const float crown = step(m_treeHeight * 1.4F, 0, depth);
        const Color light = m_scene.palette.land * daylight(m_scene);
        const Color shadow = m_scene.palette.zenith * 0.3F;
        const Color color = leaves * mix(shadow, light, clamp01(0.15F + 0.55F * crown + 0.3F * fine)) * 0.9F;
        const float mist = m_scene.fog ? 0.85F : 0.5F;
        const float low = step(0, m_treeHeight * 3.2F, depth);
        return throughAir(m_scene, color, x,
                          m_place.haze + (1 - m_place.haze) * mist * low * step(0.02F, 0.3F, m_place.haze));
    }

  private:
    [[nodiscard]] float ground(float x) const
    {
        return m_place.base - m_place.height * (0.5F + fractal(x * 1.3F, 6.1F, 4, m_place.seed));
    }

    /// The height of the tallest tree over x.
    [[nodiscard]] float standing(float x) const
    {
        float tallest = 0;
        for (uint32_t row = 0; row < 3; ++row) {
            const float u = x * m_place.scale + 0.37F * static_cast<float>(row);
            const int32_t cell = floorToInt(u);
            for (int32_t i = cell - 1; i <= cell + 1; ++i) {
                const uint32_t seed = m_place.seed + 10 + row * 4;
                const float middle = static_cast<float>(i) + random(i, 1, seed);
                const float tall = 0.45F + 0.55F * random(i, 2, seed);
                tallest = std::max(tallest, tall * (m_round ? crown(u - middle) : spire(u - middle, tall, x)));
            }
        }
        return tallest * m_treeHeight;
    }

    [[nodiscard]] float spire(float across, float tall, float x) const
    {
        const float out = std::abs(across) / (0.42F * tall);
        return out >= 1 ? 0 : 1 - out + 0.13F * noise(x * m_place.scale * 14, tall * 9, m_place.seed + 3);
    }

    [[nodiscard]] float crown(float across) const
    {
        const float out = std::abs(across) / 0.62F;
        return out >= 1 ? 0 : 0.72F * std::sqrt(1 - out * out) + 0.1F * noise(across * 9, 3, m_place.seed + 3);
    }

    const Scene &m_scene;
    Place m_place;
    bool m_round;
    float m_treeHeight;
};

class Houses : public Layer
{
  public:
    Houses(const Scene &scene, const Place &place)
        : m_scene(scene)
        , m_place(place)
    {
    }

    [[nodiscard]] float top(float x) const override
    {
        const House house = houseAt(x);
        const float inside = house.across;
        float roof = house.height;
        if (house.kind < 0.25F) { // Stepped.
            roof *= inside > 0.2F && inside < 0.8F ? 1.0F : 0.9F;
        } else if (house.kind < 0.35F) { // A mast.
            roof += std::abs(inside - 0.5F) < 0.018F ? 0.3F * house.height : 0;
        } else if (house.kind < 0.45F) { // A slanting roof.
            roof *= 0.9F + 0.1F * inside;
        }
        return m_place.base - roof;
    }

    [[nodiscard]] Color shade(float x, float y, float /*depth*/) const override
    {
        const House house = houseAt(x);
        const float tone = random(house.number, 7, m_place.seed);
        const Color wall = mix(rgb(0x5a6270), rgb(0x8a7f78), tone);
        const Color light = m_scene.palette.land * daylight(m_scene);
        const float side = (house.across > 0.62F) == (m_scene.lightX > 0) ? 1.0F : 0.6F;
        Color color = wall * light * side * 0.8F;
        if (house.across > 0.04F && house.across < 0.96F) {
            color = withWindow(color, house, x, y);
        }
        const float low = step(m_place.base - 0.22F, m_place.base, y);
        color = throughAir(m_scene, color, x, m_place.haze);
        const Color glow = m_scene.neon
                               ? mix(rgb(0xff3fa4), rgb(0x28b8ff), clamp01(0.5F + noise(x * 2.2F, 1, m_scene.seed)))
                               : rgb(0xffb066);
        return m_scene.isDark() ? color + glow * (0.22F * low * low * (0.35F + m_place.haze)) : color;
    }

  private:
    struct House
    {
        int32_t number;
        float across; ///< 0 at the left wall, 1 at the right one.
        float height;
        float kind;
    };

    [[nodiscard]] House houseAt(float x) const
    {
        const float u = x * m_place.scale;
        const int32_t cell = floorToInt(u);
        // Every cell's left wall is moved, so that no two houses are equally wide.
        const auto wall = [this](int32_t i) { return static_cast<float>(i) + 0.6F * random(i, 1, m_place.seed); };
        const int32_t number = u < wall(cell) ? cell - 1 : cell;
        const float left = wall(number);
        const float right = wall(number + 1);
        const float middle = 0.5F * (left + right) / m_place.scale;
        const float centre = m_scene.choose(40, -0.25F, 0.25F);
        const float downtown = std::exp(-(middle - centre) * (middle - centre) * 5.5F);
        const float chance = random(number, 3, m_place.seed);
        return {number, (u - left) / (right - left),
                m_place.height * (0.2F + 0.25F * chance + downtown * (0.15F + 0.6F * chance * chance)),
                random(number, 4, m_place.seed)};
    }

    [[nodiscard]] Color withWindow(Color wall, const House &house, float x, float y) const
    {
        const float size = 1.0F / (m_place.scale * (7.0F + 4.0F * random(house.number, 9, m_place.seed)));
        const float u = x / (size * 0.62F);
        const float v = (m_place.base - y) / size;
        const int32_t column = floorToInt(u);
        const int32_t floor = floorToInt(v);
        const float inU = u - static_cast<float>(column);
        const float inV = v - static_cast<float>(floor);
        const float pane =
            step(0.1F, 0.24F, inU) * step(0.9F, 0.76F, inU) * step(0.14F, 0.28F, inV) * step(0.86F, 0.72F, inV);
        if (!m_scene.isDark()) {
            const Color glass =
                mix(wall * 0.55F, m_scene.palette.horizon * 0.7F, random(column, floor, m_place.seed) * 0.6F);
            return mix(wall, glass, 0.7F * pane);
        }
        const float neonSign = m_scene.neon && house.kind > 0.5F ? neonStrip(house, y) : 0.0F;
        const float chance =
            random(column, floor, m_place.seed + 20) + 0.35F * (random(house.number, floor, m_place.seed + 21) - 0.5F);
        const Color warm = mix(rgb(0xffc27a), rgb(0xfff0d0), random(column, floor, m_place.seed + 22));
        const Color lamp = random(house.number, 11, m_place.seed) < 0.3F ? rgb(0xa8d4ff) : warm;
        const float on = chance > 0.6F ? 0.3F + 0.9F * random(column, floor, m_place.seed + 23) : 0.015F;
        return wall + lamp * (on * pane * 0.9F) + signColor(house) * neonSign;
    }

    [[nodiscard]] Color signColor(const House &house) const
    {
        const float pick = random(house.number, 13, m_place.seed);
        return pick < 0.3F    ? rgb(0xff2f8e)
               : pick < 0.55F ? rgb(0x21d4ff)
               : pick < 0.75F ? rgb(0x9a4bff)
                              : rgb(0xffa02a);
    }

    /// A tube down one edge of the house, or round its top.
    [[nodiscard]] float neonStrip(const House &house, float y) const
    {
        const float up = (m_place.base - y) / house.height;
        const float edge = std::exp(-std::abs(house.across - 0.12F) * 60);
        const float band = std::exp(-std::abs(up - 0.93F) * 160);
        return house.kind > 0.75F ? 2.2F * edge * step(0.3F, 0.35F, up) * step(0.95F, 0.9F, up) : 2.0F * band;
    }

    const Scene &m_scene;
    Place m_place;
};

} // namespace

std::unique_ptr<Layer> trees(const Scene &scene, const Place &place)
{
    return std::make_unique<Trees>(scene, place);
}

std::unique_ptr<Layer> houses(const Scene &scene, const Place &place)
{
    return std::make_unique<Houses>(scene, place);
}

} // namespace quorvane::painter
