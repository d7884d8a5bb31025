#include "demo-service/Painter/Scene.h"

#include "demo-service/Painter/Noise.h"
#include "demo-service/Painter/Words.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <array>

namespace quorvane::painter {

namespace {

using Subject = Scene::Subject;
using Time = Scene::Time;

Palette paletteOf(Time time)
{
    switch (time) {
    case Time::Dawn:
        return {rgb(0x3a5a94), rgb(0xa9a0c4), rgb(0xffcfae), rgb(0xffd7a8),
                rgb(0xffd9c4), rgb(0x7f7da6), rgb(0xc9b4b4)};
    case Time::Day:
        return {rgb(0x1f66bd), rgb(0x6fb0e8), rgb(0xd5ecf7), rgb(0xfffaf0),
                rgb(0xffffff), rgb(0x9fb4cc), rgb(0xfff8ea)};
    case Time::Golden:
        return {rgb(0x4a7fb8), rgb(0xd9c49a), rgb(0xffdf9c), rgb(0xffd98a),
                rgb(0xfff0cf), rgb(0x9c8f94), rgb(0xffdca8)};
    case Time::Sunset:
        return {rgb(0x2c2a5e), rgb(0xb04a70), rgb(0xff9c50), rgb(0xffc070),
                rgb(0xffa070), rgb(0x5a3a66), rgb(0xd9906a)};
    case Time::Dusk:
        return {rgb(0x121a40), rgb(0x4b4482), rgb(0xe2968a), rgb(0xffb49a),
                rgb(0xb887a0), rgb(0x33325e), rgb(0x70658c)};
    case Time::Night:
        break;
    }
    return {rgb(0x040919), rgb(0x0b1a3a), rgb(0x27456c), rgb(0xdde8ff), rgb(0x4d658c), rgb(0x0d1830), rgb(0x3c5278)};
}

Color stormy(Color color, float brightness)
{
    return mix(color, Color{0.95F, 1.0F, 1.06F} * luminance(color), 0.75F) * brightness;
}

/// The accent's hue at the colour's own brightness.
Color tinted(Color color, Color accent, float strength)
{
    return mix(color, accent * (luminance(color) / std::max(luminance(accent), 0.02F)), strength);
}

void tint(Scene &scene)
{
    Palette &p = scene.palette;
    if (scene.storm) {
        for (Color *color : {&p.zenith, &p.middle, &p.horizon, &p.cloudLit, &p.cloudShade, &p.land}) {
            *color = stormy(*color, 0.5F);
        }
        p.horizon = mix(p.horizon, paletteOf(scene.time).horizon, 0.6F);
    }
    // In broad daylight only a hint of colour is believable.
    const float strength = scene.accentStrength * (scene.time == Time::Day ? 0.3F : 1.0F);
    for (Color *color : {&p.middle, &p.horizon, &p.cloudLit}) {
        *color = tinted(*color, scene.accent, 0.55F * strength);
    }
    for (Color *color : {&p.zenith, &p.cloudShade, &p.land}) {
        *color = tinted(*color, scene.accent, 0.3F * strength);
    }
}

/// What hangs in the sky colours what lies below.
void lightLand(Scene &scene)
{
    if (scene.aurora) {
        scene.palette.land = mix(scene.palette.land, scene.accentStrength > 0 ? scene.accent : rgb(0x58d8a0), 0.45F);
        scene.palette.horizon = mix(scene.palette.horizon, rgb(0x1d5a50), 0.5F);
    }
    if (scene.snow) {
        scene.palette.land = mix(scene.palette.land, Color{0.86F, 0.93F, 1.05F} * luminance(scene.palette.land), 0.6F);
    }
    if (scene.subject == Subject::City && scene.isDark()) {
        scene.palette.cloudLit = scene.neon ? rgb(0x6a4080) : rgb(0x7a5c50);
        scene.palette.cloudShade = scene.neon ? rgb(0x1a1630) : rgb(0x1c1a24);
    }
    if (scene.milkyWay) {
        scene.palette.land = scene.palette.land * 2.4F;
    }
}

void placeLight(Scene &scene)
{
    const float side = scene.choose(10, 0, 1) < 0.5F ? -1.0F : 1.0F;
    scene.lightX = side * scene.choose(11, 0.12F, 0.5F);
    switch (scene.time) {
    case Time::Dawn:
    case Time::Sunset:
        scene.lightY = scene.horizon - scene.choose(12, 0.1F, 0.2F);
        break;
    case Time::Golden:
        scene.lightY = scene.horizon - scene.choose(12, 0.25F, 0.33F);
        break;
    case Time::Dusk:
        scene.lightY = scene.horizon + 0.03F;
        break;
    case Time::Day:
        scene.lightX = side * scene.choose(11, 0.55F, 0.75F);
        scene.lightY = -0.12F;
        break;
    case Time::Night:
        scene.lightY = scene.choose(12, 0.14F, 0.26F);
        break;
    }
}

float horizonOf(Subject subject)
{
    switch (subject) {
    case Subject::Lake:
        return 0.6F;
    case Subject::Sea:
    case Subject::Islands:
        return 0.56F;
    case Subject::City:
        return 0.74F;
    case Subject::Forest:
        return 0.58F;
    default:
        return 0.64F;
    }
}

} // namespace

float Scene::choose(int number, float from, float to) const
{
    return mix(from, to, random(number, 71, seed));
}

Scene sceneOf(const QString &prompt)
{
    Scene scene;
    const QByteArray digest = QCryptographicHash::hash(prompt.toUtf8(), QCryptographicHash::Sha256);
    scene.seed = qFromLittleEndian<uint32_t>(digest.constData());

    constexpr std::array kSubjects{Subject::Lake,   Subject::Mountains, Subject::Sea,     Subject::Forest,
                                   Subject::Desert, Subject::Meadow,    Subject::Islands, Subject::Mountains};
    constexpr std::array kTimes{Time::Dawn, Time::Golden, Time::Sunset, Time::Dusk, Time::Night, Time::Day};
    scene.subject = kSubjects[hash(1, 0, scene.seed) % kSubjects.size()];
    scene.time = kTimes[hash(2, 0, scene.seed) % kTimes.size()];
    scene.cloudiness = scene.choose(3, 0.25F, 0.7F);
    constexpr std::array<uint32_t, 6> kAccents{0xd0604a, 0x4f8fd0, 0xc070c0, 0x50b0a0, 0xd8a850, 0x7a6ad0};
    scene.accent = rgb(kAccents[hash(4, 0, scene.seed) % kAccents.size()]);
    applyWords(prompt, scene);

    scene.palette = paletteOf(scene.time);
    scene.horizon = horizonOf(scene.subject) + scene.choose(5, -0.02F, 0.02F);
    tint(scene);
    lightLand(scene);
    placeLight(scene);
    return scene;
}

} // namespace quorvane::painter
