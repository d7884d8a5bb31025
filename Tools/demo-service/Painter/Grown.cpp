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
        , m_light(scene.palette.land * daylight(scene))
        , m_shadow(mix(scene.palette.zenith, scene.palette.middle, 0.4F) * 0.3F)
    {
    }

    [[nodiscard]] float top(float x) const override { return ground(x) - tallest(x).height; }

    [[nodiscard]] Color shade(float x, float y, float /*depth*/) const override
    {
        const float fine = fractal(x * m_place.scale * 5, y * m_place.scale * 4.5F, 3, m_place.seed + 6) * 1.6F;
        // Looking a little aside, now here and now there, makes leafy borders between the trees.
        const Stand tree = tallest(x + (m_round ? 0.3F : 0.12F) * fine / m_place.scale);
        const float below = clamp01((y - ground(x) + tree.height) / m_treeHeight);
        const float side = m_scene.lightX > x ? 1.0F : -1.0F;
        const float lit = clamp01(0.62F - 0.6F * below + 0.7F * side * tree.across + 0.4F * fine);
        const Color color = leavesOf(tree, below, fine) * mix(m_shadow, m_light * 1.25F, lit);
        const float mist = m_scene.fog ? 0.8F : 0.45F;
        const float low = step(-m_treeHeight * 0.3F, m_treeHeight * 1.6F, y - ground(x));
        return throughAir(m_scene, color, x,
                          m_place.haze + (1 - m_place.haze) * mist * low * step(0.02F, 0.3F, m_place.haze));
    }

  private:
    /// The tallest tree over a place.
    struct Stand
    {
        float height = 0;
        float across = 0; ///< From its middle, in units of trees.
        float tone = 0.5F;
        int32_t number = 0;
    };

    [[nodiscard]] Color leavesOf(const Stand &tree, float below, float fine) const
    {
        Color leaves = mix(rgb(0x22382c), rgb(0x3a5740), tree.tone);
        if (m_scene.autumn) {
            const Color gold = mix(rgb(0x9a3412), rgb(0xe8a030), tree.tone);
            leaves = mix(gold, rgb(0x5a5a24), random(tree.number, 8, m_place.seed) > 0.75F ? 0.8F : 0.1F);
        } else if (m_scene.tropical) {
            leaves = mix(rgb(0x2a6326), rgb(0x5f9a3c), tree.tone);
        } else if (m_scene.accentStrength > 0) {
            leaves = mix(leaves, m_scene.accent * 0.25F, 0.35F);
        }
        if (m_round) {
            return mix(leaves, leaves * 0.45F, step(0.3F, 0.75F, below));
        }
        // Layers of branches, of which the upper sides carry the snow.
        const float whorl = below * 11 - std::abs(tree.across) * 6 + 0.8F * fine;
        const float under = whorl - static_cast<float>(floorToInt(whorl));
        leaves = leaves * (1.1F - 0.45F * under);
        return m_scene.snow ? mix(leaves, rgb(0xe4ecf7), step(0.75F, 0.15F, under) * step(0.9F, 0.3F, below) * 0.9F)
                            : leaves;
    }

    [[nodiscard]] float ground(float x) const
    {
        return m_place.base - m_place.height * (0.5F + fractal(x * 1.3F, 6.1F, 4, m_place.seed));
    }

    [[nodiscard]] Stand tallest(float x) const
    {
        Stand found;
        for (int32_t row = 0; row < 3; ++row) {
            const float u = x * m_place.scale + 0.37F * static_cast<float>(row);
            const int32_t cell = floorToInt(u);
            for (int32_t i = cell - 1; i <= cell + 1; ++i) {
                const uint32_t seed = m_place.seed + 10 + static_cast<uint32_t>(row) * 4;
                const float across = u - static_cast<float>(i) - random(i, 1, seed);
                const float tall = 0.4F + 0.6F * random(i, 2, seed);
                const float height = tall * m_treeHeight * (m_round ? crown(across) : spire(across, tall, x));
                if (height > found.height) {
                    found = {height, across, random(i, 3, seed), i * 3 + row};
                }
            }
        }
        return found;
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
    Color m_light;
    Color m_shadow;
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
        const float low = step(m_place.base - 0.22F, m_place.base, y);
        Color color = wall * light * (side * (0.85F - 0.45F * low));
        if (house.across > 0.04F && house.across < 0.96F) {
            color = withWindow(color, house, x, y);
        }
        color = throughAir(m_scene, color, x, m_place.haze);
        const Color glow = m_scene.neon
                               ? mix(rgb(0xff3fa4), rgb(0x28b8ff), clamp01(0.5F + noise(x * 2.2F, 1, m_scene.seed)))
                               : rgb(0xffb066);
        return m_scene.isDark() ? color + glow * (0.4F * low * low * (0.35F + m_place.haze)) : color;
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
                m_place.height * (0.12F + 0.36F * chance * chance + downtown * (0.15F + 0.6F * chance * chance)),
                random(number, 4, m_place.seed)};
    }

    [[nodiscard]] Color withWindow(Color wall, const House &house, float x, float y) const
    {
        const float size = 1.0F / (m_place.scale * (13.0F + 8.0F * random(house.number, 9, m_place.seed)));
        const float u = x / (size * 0.7F);
        const float v = (m_place.base - y) / size;
        const int32_t column = floorToInt(u);
        const int32_t floor = floorToInt(v);
        const float inU = u - static_cast<float>(column);
        const float inV = v - static_cast<float>(floor);
        const float pane =
            step(0.1F, 0.24F, inU) * step(0.9F, 0.76F, inU) * step(0.14F, 0.28F, inV) * step(0.86F, 0.72F, inV);
        if (!m_scene.isDark()) {
            // Glass mirrors the sky of its height, some panes a little more of it.
            const Color sky = mix(m_scene.palette.horizon, m_scene.palette.zenith, clamp01((m_place.base - y) * 1.6F));
            const Color glass = sky * (0.35F + 0.45F * random(column, floor, m_place.seed));
            const bool lamp = m_scene.time != Scene::Time::Day && random(column, floor, m_place.seed + 24) > 0.86F;
            return mix(wall, lamp ? rgb(0xffd896) * 1.1F : glass, 0.8F * pane);
        }
        const float neonSign = m_scene.neon && house.kind > 0.5F ? neonStrip(house, y) : 0.0F;
        const float chance =
            random(column, floor, m_place.seed + 20) + 0.35F * (random(house.number, floor, m_place.seed + 21) - 0.5F);
        const Color warm = mix(rgb(0xffc27a), rgb(0xfff0d0), random(column, floor, m_place.seed + 22));
        const Color lamp = random(house.number, 11, m_place.seed) < 0.3F ? rgb(0xa8d4ff) : warm;
        const float busy = 0.5F + 0.4F * random(house.number, 10, m_place.seed);
        const float bright = random(column, floor, m_place.seed + 23);
        const float on = chance > busy ? 0.16F + 1.6F * bright * bright * bright : 0.01F;
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
