#include "Manager/Library/ImageRecords.h"

#include "Storage/ImageStore.h"
#include "Storage/SideFile.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::ImageRecords {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ImageRecords)
};

} // namespace

QString fileName(const QString &path)
{
    return imageName(path);
}

QString folder()
{
    return ImageStore::directory();
}

std::optional<QString> recordedCopy(const QString &original)
{
    const TextMap links = readTextMap(ImageStore::variantsPath());
    const auto link = links.find(imageName(original));
    if (link == links.end() || !ImageStore::isInLibrary(original)) {
        return std::nullopt;
    }
    return folder() + '/'_L1 + link->second;
}

std::optional<QString> recordedOriginal(const QString &image)
{
    const TextMap links = readTextMap(ImageStore::variantsPath());
    const QString name = imageName(image);
    const auto link =
        std::find_if(links.begin(), links.end(), [&name](const auto &entry) { return entry.second == name; });
    if (link == links.end() || !ImageStore::isInLibrary(image)) {
        return std::nullopt;
    }
    return folder() + '/'_L1 + link->first;
}

Facts factsOf(const QString &image)
{
    if (!ImageStore::isInLibrary(image)) {
        return {}; // Whatever the library knows of a namesake.
    }
    const TextMap prompts = readTextMap(ImageStore::promptsPath());
    const auto prompt = prompts.find(imageName(image));
    return {.prompt = prompt != prompts.end() ? std::optional(prompt->second) : std::nullopt,
            .original = recordedOriginal(image),
            .hasPartner = ImageStore::variant(image).has_value()};
}

QString timestamp(const std::optional<CreationDate> &created)
{
    if (!created) {
        return {};
    }
    return momentText(created->toDateTime().toLocalTime(), QLocale());
}

QString momentText(const QDateTime &moment, const QLocale &locale)
{
    // Names and order both come from the language, even where the system mixes the settings of several.
    const QLocale language(locale.language(), locale.script(), locale.territory());
    const QString english = u"MMM d, HH:mm"_s;
    if (language.language() == QLocale::C || language.language() == QLocale::English) {
        return language.toString(moment, english);
    }
    const QString order = Tr::tr("MMM d, HH:mm", "Day and time below a picture, in the letters of QLocale::toString()");
    return order == english ? language.toString(moment, QLocale::ShortFormat) : language.toString(moment, order);
}

} // namespace quorvane::ImageRecords
