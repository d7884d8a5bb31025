#include "demo-service/Painter/Noise.h"

#include <algorithm>
#include <array>

namespace quorvane::painter {

namespace {

struct Direction
{
    float x;
    float y;
};

constexpr std::array<Direction, 8> kDirections{{{1, 0},
                                                {-1, 0},
                                                {0, 1},
                                                {0, -1},
                                                {0.7071F, 0.7071F},
                                                {-0.7071F, 0.7071F},
                                                {0.7071F, -0.7071F},
                                                {-0.7071F, -0.7071F}}};

float slope(int32_t x, int32_t y, uint32_t seed, float dx, float dy)
{
    const Direction direction = kDirections[hash(x, y, seed) & 7];
    return direction.x * dx + direction.y * dy;
}

float fade(float t)
{
    return t * t * t * (t * (t * 6 - 15) + 10);
}

// Each octave is turned by about 37 degrees, so that the grid of the noise never shows.
void turnAndRefine(float &x, float &y)
{
    const float turned = 1.62F * x - 1.22F * y + 17.3F;
    y = 1.22F * x + 1.62F * y - 9.1F;
    x = turned;
}

} // namespace

float noise(float x, float y, uint32_t seed)
{
    const int32_t ix = floorToInt(x);
    const int32_t iy = floorToInt(y);
    const float dx = x - static_cast<float>(ix);
    const float dy = y - static_cast<float>(iy);
    const float u = fade(dx);
    const float top = slope(ix, iy, seed, dx, dy) * (1 - u) + slope(ix + 1, iy, seed, dx - 1, dy) * u;
    const float bottom =
        slope(ix, iy + 1, seed, dx, dy - 1) * (1 - u) + slope(ix + 1, iy + 1, seed, dx - 1, dy - 1) * u;
    return 1.5F * (top + (bottom - top) * fade(dy));
}

float fractal(float x, float y, int octaves, uint32_t seed)
{
    float sum = 0;
    float weight = 0.5F;
    for (int i = 0; i < octaves; ++i) {
        sum += weight * noise(x, y, seed + static_cast<uint32_t>(i));
        weight *= 0.5F;
        turnAndRefine(x, y);
    }
    return sum;
}

float ridged(float x, float y, int octaves, uint32_t seed)
{
    float sum = 0;
    float weight = 0.5F;
    float carry = 1;
    for (int i = 0; i < octaves; ++i) {
        const float crest = 1 - std::min(std::abs(noise(x, y, seed + static_cast<uint32_t>(i))), 1.0F);
        carry *= crest * crest;
        sum += weight * carry;
        carry = std::min(carry * 1.6F, 1.0F);
        weight *= 0.5F;
        turnAndRefine(x, y);
    }
    return sum;
}

} // namespace quorvane::painter
