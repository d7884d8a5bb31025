// The painter's vocabulary. A word matches when it begins with an entry ("snow" also finds "snowy"); among subjects and
// times the first entry of the table that occurs anywhere wins, so the more telling ones stand first: a mountain lake
// is a lake.

#include "demo-service/Painter/Words.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvane::painter {

namespace {

using Subject = Scene::Subject;
using Time = Scene::Time;

template <typename Meaning> struct Entry
{
    const char *start;
    Meaning meaning;
};

constexpr Entry<Subject> kSubjects[] = {
    {"space", Subject::Space},     {"nebula", Subject::Space},     {"planet", Subject::Space},
    {"galax", Subject::Space},     {"cosm", Subject::Space},       {"universe", Subject::Space},
    {"city", Subject::City},       {"cities", Subject::City},      {"skyline", Subject::City},
    {"skyscraper", Subject::City}, {"street", Subject::City},      {"urban", Subject::City},
    {"island", Subject::Islands},  {"lagoon", Subject::Islands},   {"tropic", Subject::Islands},
    {"lake", Subject::Lake},       {"fjord", Subject::Lake},       {"river", Subject::Lake},
    {"pond", Subject::Lake},       {"desert", Subject::Desert},    {"dune", Subject::Desert},
    {"sahara", Subject::Desert},   {"mars", Subject::Desert},      {"forest", Subject::Forest},
    {"wood", Subject::Forest},     {"jungle", Subject::Forest},    {"taiga", Subject::Forest},
    {"sea", Subject::Sea},         {"ocean", Subject::Sea},        {"beach", Subject::Sea},
    {"coast", Subject::Sea},       {"wave", Subject::Sea},         {"meadow", Subject::Meadow},
    {"field", Subject::Meadow},    {"hill", Subject::Meadow},      {"grass", Subject::Meadow},
    {"flower", Subject::Meadow},   {"prairie", Subject::Meadow},   {"mountain", Subject::Mountains},
    {"peak", Subject::Mountains},  {"alp", Subject::Mountains},    {"valley", Subject::Mountains},
    {"cliff", Subject::Mountains}, {"volcan", Subject::Mountains}, {"tree", Subject::Forest},
};

constexpr Entry<Time> kTimes[] = {
    {"dawn", Time::Dawn},      {"sunrise", Time::Dawn},   {"morning", Time::Dawn},  {"sunset", Time::Sunset},
    {"dusk", Time::Dusk},      {"twilight", Time::Dusk},  {"evening", Time::Dusk},  {"night", Time::Night},
    {"midnight", Time::Night}, {"aurora", Time::Night},   {"milky", Time::Night},   {"star", Time::Night},
    {"moon", Time::Night},     {"northern", Time::Night}, {"golden", Time::Golden}, {"afternoon", Time::Golden},
    {"noon", Time::Day},       {"midday", Time::Day},     {"day", Time::Day},       {"sunny", Time::Day},
    {"summer", Time::Day},     {"tropic", Time::Day},     {"autumn", Time::Golden},
};

constexpr Entry<uint32_t> kColors[] = {
    {"pink", 0xff7fb0},   {"rose", 0xf07a9c},      {"golden", 0xffb640}, {"gold", 0xffb640},    {"emerald", 0x2fb57a},
    {"green", 0x4fae5a},  {"turquoise", 0x2fc4c0}, {"teal", 0x2a9d9a},   {"cyan", 0x3cc8e0},    {"purple", 0x9a5ae0},
    {"violet", 0x8a5ae8}, {"lavender", 0xb49ae8},  {"red", 0xe0452c},    {"crimson", 0xd02840}, {"scarlet", 0xe83020},
    {"orange", 0xff8a30}, {"amber", 0xffa62e},     {"yellow", 0xffd84a}, {"blue", 0x4a86e8},    {"indigo", 0x4a4ad0},
};

constexpr Entry<bool Scene::*> kFlags[] = {
    {"aurora", &Scene::aurora},
    {"northern", &Scene::aurora},
    {"storm", &Scene::storm},
    {"thunder", &Scene::storm},
    {"fog", &Scene::fog},
    {"mist", &Scene::fog},
    {"haze", &Scene::fog},
    {"hazy", &Scene::fog},
    {"rain", &Scene::rain},
    {"snow", &Scene::snow},
    {"winter", &Scene::snow},
    {"frozen", &Scene::snow},
    {"icy", &Scene::snow},
    {"autumn", &Scene::autumn},
    {"october", &Scene::autumn},
    {"tropic", &Scene::tropical},
    {"palm", &Scene::tropical},
    {"turquoise", &Scene::tropical},
    {"neon", &Scene::neon},
    {"cyberpunk", &Scene::neon},
    {"milky", &Scene::milkyWay},
    {"star", &Scene::milkyWay},
    {"planet", &Scene::namesPlanet},
};

class Words
{
  public:
    explicit Words(const QString &prompt)
        : m_words(
              prompt.toLower().split(QRegularExpression(u"[^\\w]+"_s, QRegularExpression::UseUnicodePropertiesOption)))
    {
    }

    [[nodiscard]] bool have(const char *start) const { return index(start) >= 0; }

    [[nodiscard]] qsizetype index(const char *start) const
    {
        const auto found = std::find_if(m_words.begin(), m_words.end(),
                                        [start](const QString &word) { return word.startsWith(QLatin1String(start)); });
        return found == m_words.end() ? -1 : found - m_words.begin();
    }

    template <typename Table> [[nodiscard]] auto first(const Table &table) const
    {
        const auto found =
            std::find_if(std::begin(table), std::end(table), [this](const auto &e) { return have(e.start); });
        return found == std::end(table) ? std::nullopt : std::optional(found->meaning);
    }

    /// "two moons" are two, "moon" is one.
    [[nodiscard]] int moons() const
    {
        const qsizetype at = index("moon");
        if (at < 0 || m_words[at].startsWith(u"moonl"_s)) {
            return 0;
        }
        const QString number = at == 0 ? QString() : m_words[at - 1];
        return number == u"two"_s || number == u"2"_s ? 2 : number == u"three"_s || number == u"3"_s ? 3 : 1;
    }

  private:
    QStringList m_words;
};

} // namespace

void applyWords(const QString &prompt, Scene &scene)
{
    const Words words(prompt);
    scene.subject = words.first(kSubjects).value_or(scene.subject);
    scene.time = words.first(kTimes).value_or(scene.time);
    if (const std::optional<uint32_t> color = words.first(kColors)) {
        scene.accent = rgb(*color);
        scene.accentStrength = 1;
    }
    for (const auto &[start, flag] : kFlags) {
        if (words.have(start)) {
            scene.*flag = true;
        }
    }
    scene.moons = words.moons();
    if (words.have("mono") || (words.have("black") && words.have("white")) || words.have("grey") ||
        words.have("gray")) {
        scene.saturation = 0;
        scene.time = words.first(kTimes).value_or(Time::Golden); // Greys live on hard light.
    }
    if (words.have("clear") || words.have("cloudless") || scene.aurora || scene.milkyWay) {
        scene.cloudiness = 0.08F;
    }
    if (words.have("cloud") || scene.rain || scene.storm) {
        scene.cloudiness = 0.9F;
    }
    if (words.have("pastel")) {
        scene.saturation = 0.7F;
    }
}

} // namespace quorvane::painter
