#pragma once

#include "demo-service/Painter/Color.h"

#include <QString>

#include <cstdint>

namespace quorvane::painter {

/// The colours of a time of day.
struct Palette
{
    Color zenith;
    Color middle;
    Color horizon;
    Color light; ///< Of the sun or the moon.
    Color cloudLit;
    Color cloudShade;
    Color land; ///< What light falls on: rock, sand and leaves are multiplied by it.
};

/// What a prompt asks for, in the terms of the painter.
struct Scene
{
    enum class Subject { Mountains, Lake, Sea, Islands, Forest, Desert, City, Meadow, Space };
    enum class Time { Dawn, Day, Golden, Sunset, Dusk, Night };

    Subject subject = Subject::Mountains;
    Time time = Time::Day;
    bool aurora = false;
    bool storm = false;
    bool fog = false;
    bool rain = false;
    bool snow = false;
    bool autumn = false;
    bool tropical = false;
    bool neon = false;
    bool milkyWay = false;
    bool namesPlanet = false;
    int moons = 0; ///< Beside the one that gives the light of a night.

    uint32_t seed = 0;
    Palette palette;
    Color accent;             ///< What a colour word names, or a colour of the seed's choice.
    float accentStrength = 0; ///< 0 without a colour word.
    float saturation = 1;     ///< 0 for a picture in greys.
    float horizon = 0.6F;     ///< y of the horizon.
    float lightX = 0;         ///< Where sun or moon stand.
    float lightY = 0.3F;
    float cloudiness = 0.5F; ///< 0 none, 1 overcast.

    [[nodiscard]] bool isNight() const { return time == Time::Night; }
    /// Whether the sun or moon itself is in the sky; nights of stars or northern lights have no moon unless asked.
    [[nodiscard]] bool showsLight() const { return !isNight() || moons > 0 || !(milkyWay || aurora); }
    [[nodiscard]] bool isDark() const { return time == Time::Night || time == Time::Dusk; }
    /// A choice of the seed's between from and to, another one for each number.
    [[nodiscard]] float choose(int number, float from, float to) const;
};

/// Reads the prompt: words that are known choose, the hash of the whole text decides the rest.
[[nodiscard]] Scene sceneOf(const QString &prompt);

} // namespace quorvane::painter
