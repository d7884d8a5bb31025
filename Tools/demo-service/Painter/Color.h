#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace quorvane::painter {

/// Linear light: 0 is black, 1 the brightest that a screen shows, more is possible and glows.
struct Color
{
    float r = 0;
    float g = 0;
    float b = 0;
};

constexpr Color operator+(Color a, Color b)
{
    return {a.r + b.r, a.g + b.g, a.b + b.b};
}
constexpr Color operator*(Color a, Color b)
{
    return {a.r * b.r, a.g * b.g, a.b * b.b};
}
constexpr Color operator*(Color a, float f)
{
    return {a.r * f, a.g * f, a.b * f};
}

constexpr float mix(float a, float b, float t)
{
    return a + (b - a) * t;
}
constexpr Color mix(Color a, Color b, float t)
{
    return {mix(a.r, b.r, t), mix(a.g, b.g, t), mix(a.b, b.b, t)};
}
constexpr float clamp01(float v)
{
    return std::clamp(v, 0.0F, 1.0F);
}

constexpr float luminance(Color c)
{
    return 0.2126F * c.r + 0.7152F * c.g + 0.0722F * c.b;
}

/// 0 up to from, 1 beyond to, a soft step between them; from may be the larger one.
constexpr float step(float from, float to, float v)
{
    const float t = clamp01((v - from) / (to - from));
    return t * t * (3 - 2 * t);
}

/// A colour as painters write it, 0xRRGGBB in sRGB.
inline Color rgb(uint32_t hex)
{
    const auto linear = [](uint32_t byte) {
        const float v = static_cast<float>(byte) / 255.0F;
        return v <= 0.04045F ? v / 12.92F : std::pow((v + 0.055F) / 1.055F, 2.4F);
    };
    return {linear(hex >> 16 & 0xff), linear(hex >> 8 & 0xff), linear(hex & 0xff)};
}

} // namespace quorvane::painter
