#include "demo-service/Painter/Finish.h"

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/Terrain.h"

#include <array>

namespace quorvane::painter {

namespace {

constexpr int kGlowHeight = 180;

/// One direction of a blur that falls off in both directions; two passes there and back make it round.
void smear(std::vector<Color> &line, float keep)
{
    for (size_t i = 1; i < line.size(); ++i) {
        line[i] = mix(line[i], line[i - 1], keep);
    }
    for (size_t i = line.size() - 1; i-- > 0;) {
        line[i] = mix(line[i], line[i + 1], keep);
    }
}

void blur(Canvas &canvas, float keep)
{
    inParallel(canvas.height(), [&](int row) {
        std::vector<Color> line(static_cast<size_t>(canvas.width()));
        for (int i = 0; i < canvas.width(); ++i) {
            line[static_cast<size_t>(i)] = canvas.at(i, row);
        }
        smear(line, keep);
        smear(line, keep);
        for (int i = 0; i < canvas.width(); ++i) {
            canvas.at(i, row) = line[static_cast<size_t>(i)];
        }
    });
    inParallel(canvas.width(), [&](int column) {
        std::vector<Color> line(static_cast<size_t>(canvas.height()));
        for (int i = 0; i < canvas.height(); ++i) {
            line[static_cast<size_t>(i)] = canvas.at(column, i);
        }
        smear(line, keep);
        smear(line, keep);
        for (int i = 0; i < canvas.height(); ++i) {
            canvas.at(column, i) = line[static_cast<size_t>(i)];
        }
    });
}

/// Slanting streaks, or flakes, in several depths.
float falling(const Scene &scene, float x, float y)
{
    float sum = 0;
    for (int layer = 0; layer < 4; ++layer) {
        const float cells = 14.0F * static_cast<float>(1 << layer);
        const uint32_t seed = scene.seed + 700U + static_cast<uint32_t>(layer);
        const float u = (x + (scene.snow ? 0.1F : 0.16F) * y) * cells * (scene.snow ? 1.0F : 4.0F);
        const float v = y * cells * (scene.snow ? 1.0F : 0.45F) + 40 * random(floorToInt(u), 3, seed);
        const int32_t cx = floorToInt(u);
        const int32_t cy = floorToInt(v);
        if (random(cx, cy, seed + 20) > 0.3F) {
            continue;
        }
        const float dx = u - static_cast<float>(cx) - 0.5F;
        const float dy = v - static_cast<float>(cy) - 0.5F;
        const float strength = 0.2F + 0.8F * random(cx, cy, seed + 30);
        sum += scene.snow ? strength * step(0.2F, 0.02F, std::sqrt(dx * dx + dy * dy))
                          : 0.55F * strength * step(0.22F, 0.0F, std::abs(dx)) * step(0.5F, 0.1F, std::abs(dy));
    }
    return sum;
}

/// Bends the brightest tones gently into white instead of cutting them off.
float shoulder(float v)
{
    return v < 0.7F ? v : 0.7F + 0.3F * (1 - std::exp((0.7F - v) / 0.3F));
}

/// sRGB of linear light from 0 to 1, in steps fine enough for the darkest tones.
const std::array<float, 8193> &screenTones()
{
    static const auto tones = [] {
        std::array<float, 8193> table{};
        for (size_t i = 0; i < table.size(); ++i) {
            const float root = static_cast<float>(i) / static_cast<float>(table.size() - 1);
            const float v = root * root;
            table[i] = 255.0F * (v <= 0.0031308F ? 12.92F * v : 1.055F * std::pow(v, 1 / 2.4F) - 0.055F);
        }
        return table;
    }();
    return tones;
}

int toScreen(float light, float grain)
{
    const float tone = screenTones()[static_cast<size_t>(std::sqrt(clamp01(shoulder(light))) * 8192.0F)];
    return std::clamp(static_cast<int>(tone + 0.5F + grain), 0, 255);
}

} // namespace

void paintWeather(Canvas &canvas, const Scene &scene)
{
    const bool falls = scene.rain || (scene.snow && scene.cloudiness > 0.5F);
    if ((!falls && !scene.fog) || scene.subject == Scene::Subject::Space) {
        return;
    }
    inParallel(canvas.height(), [&](int row) {
        const float y = canvas.y(static_cast<float>(row));
        for (int column = 0; column < canvas.width(); ++column) {
            const float x = canvas.x(static_cast<float>(column));
            Color &color = canvas.at(column, row);
            if (scene.fog) {
                const float bank = 0.5F + 0.9F * fractal(x * 1.1F, y * 3.4F, 5, scene.seed + 690);
                const float low = step(0.25F, 0.62F, y) * step(1.15F, 0.75F, y);
                color = throughAir(scene, color, x, clamp01(bank) * low * 0.55F);
            }
            if (falls) {
                const Color drop = mix(Color{1, 1, 1} * (0.35F + 0.65F * daylight(scene)), scene.palette.horizon, 0.4F);
                color = color + drop * (falling(scene, x, y) * (scene.snow ? 0.7F : 0.14F));
            }
        }
    });
}

void addGlow(Canvas &canvas, const Scene &scene)
{
    // At a fixed small size, so that the glow is as wide in every picture.
    Canvas small(QSize(std::max(kGlowHeight * canvas.width() / canvas.height(), 2), kGlowHeight));
    const float scale = static_cast<float>(canvas.height()) / kGlowHeight;
    const float threshold = scene.isDark() || scene.subject == Scene::Subject::Space ? 0.3F : 0.8F;
    inParallel(small.height(), [&](int row) {
        const int firstRow = static_cast<int>(static_cast<float>(row) * scale);
        const int lastRow =
            std::clamp(static_cast<int>(static_cast<float>(row + 1) * scale), firstRow + 1, canvas.height());
        for (int column = 0; column < small.width(); ++column) {
            const int first = std::min(static_cast<int>(static_cast<float>(column) * scale), canvas.width() - 1);
            const int last =
                std::clamp(static_cast<int>(static_cast<float>(column + 1) * scale), first + 1, canvas.width());
            Color sum;
            for (int y = firstRow; y < lastRow; ++y) {
                for (int x = first; x < last; ++x) {
                    const Color &color = canvas.at(x, y);
                    const float bright = luminance(color);
                    sum = sum + color * (std::max(bright - threshold, 0.0F) / (bright + 0.001F));
                }
            }
            small.at(column, row) = sum * (1.0F / static_cast<float>((lastRow - firstRow) * (last - first)));
        }
    });
    Canvas wide = small;
    blur(small, 0.55F);
    blur(wide, 0.88F);
    const float strength = scene.neon ? 1.1F : scene.isDark() ? 0.8F : 0.55F;
    inParallel(canvas.height(), [&](int row) {
        const float from = (static_cast<float>(row) + 0.5F) / scale - 0.5F;
        for (int column = 0; column < canvas.width(); ++column) {
            const float at = (static_cast<float>(column) + 0.5F) / scale - 0.5F;
            Color &color = canvas.at(column, row);
            color = color + (small.sample(at, from) * 0.45F + wide.sample(at, from) * 0.55F) * strength;
        }
    });
}

QImage develop(const Canvas &canvas, const Scene &scene)
{
    QImage image(canvas.width(), canvas.height(), QImage::Format_RGB32);
    uchar *const bits = image.bits();
    const qsizetype stride = image.bytesPerLine();
    inParallel(canvas.height(), [&](int row) {
        auto *const line = reinterpret_cast<QRgb *>(bits + row * stride);
        const float dy = canvas.y(static_cast<float>(row)) - 0.5F;
        for (int column = 0; column < canvas.width(); ++column) {
            const float dx = canvas.x(static_cast<float>(column));
            Color color =
                canvas.at(column, row) * (1 - 0.3F * step(0.45F, 1.15F, std::sqrt(dx * dx * 0.75F + dy * dy)));
            color = mix(Color{1, 1, 1} * luminance(color), color, scene.saturation);
            const float grain = random(column, row, 1) + random(column, row, 2) - 1;
            line[column] = qRgb(toScreen(color.r, grain), toScreen(color.g, grain), toScreen(color.b, grain));
        }
    });
    return image;
}

} // namespace quorvane::painter
