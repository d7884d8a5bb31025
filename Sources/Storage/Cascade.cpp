#include "Storage/Cascade.h"

#include "Platform/Files/SystemCall.h"
#include "Storage/ImageStore.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(ImageStore)
};

bool namesOneOf(const std::set<QString> &names, const TextMap::value_type &link)
{
    return names.contains(link.first) || names.contains(link.second);
}

/// Both outcomes in one: the first failure.
void add(Result<> *outcome, const Result<> &step)
{
    if (*outcome && !step) {
        *outcome = step;
    }
}

} // namespace

std::optional<QString> linkedPath(const QString &folder, const QString &name)
{
    return isImageName(name) ? std::optional(folder + '/'_L1 + name) : std::nullopt;
}

Failure notDeleted(const QString &path, int error)
{
    return {Tr::tr("%1 could not be deleted: %2").arg(imageName(path), systemWords(error))};
}

QStringList withPartners(const QStringList &images)
{
    const QString folder = ImageStore::directory();
    const TextMap links = readTextMap(ImageStore::variantsPath());
    QStringList paths;
    const auto addMember = [&](const QString &member) {
        if (const auto path = linkedPath(folder, member)) {
            paths.append(*path);
        }
    };
    for (const QString &image : images) {
        const QString name = imageName(image);
        paths.append(image);
        if (const auto link = links.find(name); link != links.end()) {
            addMember(link->second);
        }
        for (const auto &[original, upscaled] : links) {
            if (upscaled == name) {
                addMember(original);
            }
        }
    }
    paths.removeDuplicates();
    return paths;
}

std::set<QString> namesOf(const QStringList &paths)
{
    std::set<QString> names;
    for (const QString &path : paths) {
        names.insert(imageName(path));
    }
    return names;
}

PictureEntries entriesOf(const std::set<QString> &names)
{
    PictureEntries entries{readTextMap(ImageStore::promptsPath()), readTextMap(ImageStore::variantsPath()),
                           readTextList(ImageStore::favoritesPath())};
    std::erase_if(entries.prompts, [&](const auto &prompt) { return !names.contains(prompt.first); });
    std::erase_if(entries.links, [&](const auto &link) { return !namesOneOf(names, link); });
    entries.favorites.removeIf([&](const QString &favorite) { return !names.contains(favorite); });
    return entries;
}

Result<> dropEntriesOf(const std::set<QString> &names)
{
    Result<> outcome = kDone;
    const auto dropPrompts = [&](TextMap &prompts) {
        std::erase_if(prompts, [&](const auto &prompt) { return names.contains(prompt.first); });
        return Change::Write;
    };
    add(&outcome, changeTextMap(ImageStore::promptsPath(), FileAccess::Default, dropPrompts));

    const auto dropFavorites = [&](std::set<QString> &favorites) {
        const auto isOne = [&](const QString &favorite) { return names.contains(favorite); };
        return std::erase_if(favorites, isOne) > 0 ? Change::Write : Change::LeaveAlone;
    };
    add(&outcome, changeTextSet(ImageStore::favoritesPath(), FileAccess::Default, dropFavorites));

    const auto dropLinks = [&](TextMap &links) {
        const auto isOne = [&](const auto &link) { return namesOneOf(names, link); };
        return std::erase_if(links, isOne) > 0 ? Change::Write : Change::LeaveAlone;
    };
    add(&outcome, changeTextMap(ImageStore::variantsPath(), FileAccess::Default, dropLinks));
    return outcome;
}

Result<> restoreEntries(const PictureEntries &entries)
{
    Result<> outcome = kDone;
    const auto addTo = [](const TextMap &added) {
        return [&added](TextMap &map) {
            const std::size_t before = map.size();
            map.insert(added.begin(), added.end());
            return map.size() != before ? Change::Write : Change::LeaveAlone;
        };
    };
    add(&outcome, changeTextMap(ImageStore::promptsPath(), FileAccess::Default, addTo(entries.prompts)));
    add(&outcome, changeTextMap(ImageStore::variantsPath(), FileAccess::Default, addTo(entries.links)));

    const auto addFavorites = [&](std::set<QString> &favorites) {
        const std::size_t before = favorites.size();
        favorites.insert(entries.favorites.begin(), entries.favorites.end());
        return favorites.size() != before ? Change::Write : Change::LeaveAlone;
    };
    add(&outcome, changeTextSet(ImageStore::favoritesPath(), FileAccess::Default, addFavorites));
    return outcome;
}

} // namespace quorvane
