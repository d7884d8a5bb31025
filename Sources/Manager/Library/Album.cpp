#include "Manager/Library/Album.h"

#include "Storage/ImageStore.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Album)
};

/// The albums of the prompts in the order in which the history first names them.
std::vector<Album> groupedByPrompt(const QStringList &history, const TextMap &prompts)
{
    std::vector<Album> albums;
    QHash<QString, std::size_t> indexOf;
    for (const QString &path : history) {
        const auto prompt = prompts.find(imageName(path));
        const QString id = prompt != prompts.end() ? prompt->second : u"Uncategorized"_s;
        const auto known = indexOf.constFind(id);
        if (known == indexOf.constEnd()) {
            indexOf.insert(id, albums.size());
            albums.push_back({id, {path}, false});
        } else {
            albums[*known].images.append(path);
        }
    }
    return albums;
}

/// Sorts the albums whose cover has a date among the places that such albums hold; the others stay where they are, so
/// that "cannot be compared" never makes the order contradict itself.
void sortByCoverDate(std::vector<Album> &albums, const CreationDateOf &creationDate)
{
    std::vector<std::size_t> places;
    std::vector<std::pair<CreationDate, Album>> dated;
    for (std::size_t place = 0; place < albums.size(); ++place) {
        if (const auto date = creationDate(albums[place].images.first())) {
            places.push_back(place);
            dated.emplace_back(*date, std::move(albums[place]));
        }
    }
    std::stable_sort(dated.begin(), dated.end(),
                     [](const auto &left, const auto &right) { return left.first > right.first; });
    for (std::size_t index = 0; index < places.size(); ++index) {
        albums[places[index]] = std::move(dated[index].second);
    }
}

} // namespace

QString albumTitle(const QString &id, bool isFavorites)
{
    if (isFavorites) {
        return Tr::tr("Favorites");
    }
    return id == "Uncategorized"_L1 ? Tr::tr("Uncategorized") : id;
}

QStringList withoutHiddenOriginals(const QStringList &all, const TextMap &links)
{
    if (links.empty()) {
        return all;
    }
    QSet<QString> names;
    names.reserve(all.size());
    for (const QString &path : all) {
        names.insert(imageName(path));
    }
    QStringList shown;
    shown.reserve(all.size());
    for (const QString &path : all) {
        const auto link = links.find(imageName(path));
        // One that is linked to itself is hidden, too: the link says that an enlarged one stands for it.
        if (link == links.end() || !names.contains(link->second)) {
            shown.append(path);
        }
    }
    return shown;
}

std::vector<Album> albumsOf(const QStringList &history, const QSet<QString> &favorites, const TextMap &prompts,
                            const CreationDateOf &creationDate)
{
    const auto isFavorite = [&favorites](const QString &path) { return favorites.contains(imageName(path)); };

    std::vector<Album> albums = groupedByPrompt(history, prompts);
    for (Album &album : albums) {
        std::stable_partition(album.images.begin(), album.images.end(), isFavorite);
    }
    sortByCoverDate(albums, creationDate);

    QStringList favoritePaths;
    std::copy_if(history.begin(), history.end(), std::back_inserter(favoritePaths), isFavorite);
    if (!favoritePaths.isEmpty()) {
        albums.insert(albums.begin(), Album{u"Favorites"_s, favoritePaths, true});
    }
    return albums;
}

} // namespace quorvane
