#pragma once

#include <cmath>
#include <cstdint>

namespace quorvane::painter {

/// A number that looks random but depends on its arguments alone.
inline uint32_t hash(int32_t x, int32_t y, uint32_t seed)
{
    uint32_t h = static_cast<uint32_t>(x) * 0x27d4eb2dU ^ static_cast<uint32_t>(y) * 0x165667b1U ^ seed * 0x9e3779b9U;
    h = (h ^ h >> 15) * 0x2c1b3c6dU;
    h = (h ^ h >> 12) * 0x297a2d39U;
    return h ^ h >> 15;
}

/// The same as a number in [0, 1).
inline float random(int32_t x, int32_t y, uint32_t seed)
{
    return static_cast<float>(hash(x, y, seed) >> 8) * (1.0F / 16777216.0F);
}

/// Rounds down; std::floor is a library call without SSE 4.1.
inline int32_t floorToInt(float v)
{
    const auto whole = static_cast<int32_t>(v);
    return whole - static_cast<int32_t>(v < static_cast<float>(whole));
}

/// Gradient noise, smooth, about -1..1, with features of size 1.
[[nodiscard]] float noise(float x, float y, uint32_t seed);

/// Sum of octaves of noise, about -1..1: clouds, mist, soft variation.
[[nodiscard]] float fractal(float x, float y, int octaves, uint32_t seed);

/// Sum of octaves folded at zero, 0..1: sharp crests and gullies.
[[nodiscard]] float ridged(float x, float y, int octaves, uint32_t seed);

} // namespace quorvane::painter
