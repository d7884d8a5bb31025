#include "Manager/Library/Album.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// "a3" was created in second 3; a name without a number has no readable date.
std::optional<CreationDate> dateInName(const QString &path)
{
    bool isNumber = false;
    const int seconds = path.sliced(path.lastIndexOf('/'_L1) + 2).toInt(&isNumber);
    return isNumber ? std::optional(CreationDate{seconds, 0}) : std::nullopt;
}

QStringList paths(std::initializer_list<const char *> names)
{
    QStringList list;
    for (const char *name : names) {
        list.append(u"/library/"_s + QLatin1String(name));
    }
    return list;
}

/// "id: names; id: names", favourites marked with a star.
QString described(const std::vector<Album> &albums)
{
    QStringList texts;
    for (const Album &album : albums) {
        QStringList names;
        for (const QString &path : album.images) {
            names.append(path.sliced(u"/library/"_s.size()));
        }
        texts.append(album.id + (album.isFavorites ? u"*: "_s : u": "_s) + names.join(' '_L1));
    }
    return texts.join(u"; "_s);
}

} // namespace

TEST(Album, imagesWithOnePromptAreOneAlbumAndTheLatestComesFirst)
{
    const TextMap prompts{{u"a1"_s, u"sea"_s}, {u"a2"_s, u"hill"_s}, {u"a3"_s, u"sea"_s}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {}, prompts, dateInName)), u"sea: a3 a1; hill: a2"_s);
}

TEST(Album, imagesWithoutAPromptAreUncategorizedTogether)
{
    const TextMap prompts{{u"a2"_s, u"hill"_s}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {}, prompts, dateInName)),
              u"Uncategorized: a3 a1; hill: a2"_s);
}

TEST(Album, promptsThatDifferInAnyCharacterAreDifferentAlbums)
{
    const TextMap prompts{{u"a1"_s, u"sea"_s}, {u"a2"_s, u"Sea"_s}, {u"a3"_s, u"sea "_s}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {}, prompts, dateInName)), u"sea : a3; Sea: a2; sea: a1"_s);
}

TEST(Album, aFavouriteIsTheCoverAndItsDatePlacesTheAlbum)
{
    const TextMap prompts{{u"a1"_s, u"sea"_s}, {u"a2"_s, u"hill"_s}, {u"a3"_s, u"sea"_s}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {u"a1"_s}, prompts, dateInName)),
              u"Favorites*: a1; hill: a2; sea: a1 a3"_s);
}

TEST(Album, favouritesKeepTheHistorysOrder)
{
    const QSet<QString> favorites{u"a1"_s, u"a3"_s, u"gone"_s};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), favorites, {}, dateInName)),
              u"Favorites*: a3 a1; Uncategorized: a3 a1 a2"_s);
}

TEST(Album, withoutAFavouriteInTheHistoryThereIsNoSuchAlbum)
{
    EXPECT_EQ(described(albumsOf(paths({"a1"}), {u"gone"_s}, {}, dateInName)), u"Uncategorized: a1"_s);
    EXPECT_TRUE(albumsOf({}, {u"gone"_s}, {}, dateInName).empty());
}

TEST(Album, aPromptNamedLikeASpecialAlbumIsToldApart)
{
    const TextMap prompts{{u"a1"_s, u"Favorites"_s}, {u"a2"_s, u"Uncategorized"_s}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {u"a1"_s}, prompts, dateInName)),
              u"Favorites*: a1; Uncategorized: a3 a2; Favorites: a1"_s);
}

TEST(Album, anAlbumWhoseDateCannotBeReadKeepsItsPlace)
{
    const TextMap prompts{{u"a1"_s, u"one"_s}, {u"ax"_s, u"undated"_s}, {u"a3"_s, u"three"_s}, {u"a2"_s, u"two"_s}};
    EXPECT_EQ(described(albumsOf(paths({"a1", "ax", "a3", "a2"}), {}, prompts, dateInName)),
              u"three: a3; undated: ax; two: a2; one: a1"_s);
}

TEST(Album, anOriginalIsHiddenExactlyWhileItsVariantIsThere)
{
    const TextMap links{{u"a1"_s, u"a2"_s}, {u"a3"_s, u"gone"_s}};
    EXPECT_EQ(withoutHiddenOriginals(paths({"a3", "a2", "a1"}), links), paths({"a3", "a2"}));
    EXPECT_EQ(withoutHiddenOriginals(paths({"a3", "a1"}), links), paths({"a3", "a1"}));
}

TEST(Album, aPictureThatIsLinkedToItselfHidesItself)
{
    EXPECT_EQ(withoutHiddenOriginals(paths({"a3", "a2"}), {{u"a2"_s, u"a2"_s}}), paths({"a3"}));
    EXPECT_EQ(withoutHiddenOriginals(paths({"a3"}), {{u"a2"_s, u"a2"_s}}), paths({"a3"}));
}

} // namespace quorvane
