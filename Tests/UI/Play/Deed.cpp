#include "UI/Play/Deed.h"

#include <QRandomGenerator>

#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::array kNames{"open an album",
                            "close the album",
                            "open a picture",
                            "close the preview",
                            "step left",
                            "step right",
                            "star a tile",
                            "delete a tile",
                            "apply a tile",
                            "star what is shown",
                            "upscale what is shown",
                            "show the original",
                            "use the prompt",
                            "use the prompt and take it back",
                            "move by key",
                            "star by key",
                            "delete by key",
                            "bring back what was deleted",
                            "open by key",
                            "type",
                            "undo",
                            "generate",
                            "switch 4K",
                            "switch NSFW",
                            "switch the theme",
                            "resize",
                            "type a key",
                            "save a key",
                            "remove a key",
                            "choose a provider",
                            "choose how to upscale",
                            "choose a model",
                            "close the settings",
                            "prompt from outside",
                            "generate from outside",
                            "star from outside",
                            "delete from outside",
                            "a setting from outside",
                            "a key from outside",
                            "add a file",
                            "remove a file"};
static_assert(kNames.size() == std::size_t(Deed::Kind::Count));

} // namespace

QString nameOf(const Deed &deed)
{
    return u"%1 (%2)"_s.arg(QLatin1String(kNames[std::size_t(deed.kind)])).arg(deed.number);
}

QList<Deed> deedsOf(quint32 seed, int count)
{
    QRandomGenerator random(seed);
    QList<Deed> deeds;
    for (int index = 0; index < count; ++index) {
        const auto kind = static_cast<Deed::Kind>(random.bounded(static_cast<int>(Deed::Kind::Count)));
        deeds.append({kind, random.bounded(1U << 20)});
    }
    return deeds;
}

} // namespace quorvane
