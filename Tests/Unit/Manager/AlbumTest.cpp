#include "Manager/Album.h"

#include <gtest/gtest.h>

namespace quorvane {

namespace {

/// "a3" was created in second 3; a name without a number has no readable date.
std::optional<CreationDate> dateInName(const QString &path)
{
    bool isNumber = false;
    const int seconds = path.sliced(path.lastIndexOf(QLatin1Char('/')) + 2).toInt(&isNumber);
    return isNumber ? std::optional(CreationDate{seconds, 0}) : std::nullopt;
}

QStringList paths(std::initializer_list<const char *> names)
{
    QStringList list;
    for (const char *name : names) {
        list.append(QStringLiteral("/library/") + QLatin1String(name));
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
            names.append(path.sliced(QStringLiteral("/library/").size()));
        }
        texts.append(album.id + (album.isFavorites ? QStringLiteral("*: ") : QStringLiteral(": ")) +
                     names.join(QLatin1Char(' ')));
    }
    return texts.join(QStringLiteral("; "));
}

} // namespace

TEST(Album, imagesWithOnePromptAreOneAlbumAndTheLatestComesFirst)
{
    const TextMap prompts{{QStringLiteral("a1"), QStringLiteral("sea")},
                          {QStringLiteral("a2"), QStringLiteral("hill")},
                          {QStringLiteral("a3"), QStringLiteral("sea")}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {}, prompts, dateInName)),
              QStringLiteral("sea: a3 a1; hill: a2"));
}

TEST(Album, imagesWithoutAPromptAreUncategorizedTogether)
{
    const TextMap prompts{{QStringLiteral("a2"), QStringLiteral("hill")}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {}, prompts, dateInName)),
              QStringLiteral("Uncategorized: a3 a1; hill: a2"));
}

TEST(Album, promptsThatDifferInAnyCharacterAreDifferentAlbums)
{
    const TextMap prompts{{QStringLiteral("a1"), QStringLiteral("sea")},
                          {QStringLiteral("a2"), QStringLiteral("Sea")},
                          {QStringLiteral("a3"), QStringLiteral("sea ")}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {}, prompts, dateInName)),
              QStringLiteral("sea : a3; Sea: a2; sea: a1"));
}

TEST(Album, aFavouriteIsTheCoverAndItsDatePlacesTheAlbum)
{
    const TextMap prompts{{QStringLiteral("a1"), QStringLiteral("sea")},
                          {QStringLiteral("a2"), QStringLiteral("hill")},
                          {QStringLiteral("a3"), QStringLiteral("sea")}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {QStringLiteral("a1")}, prompts, dateInName)),
              QStringLiteral("Favorites*: a1; hill: a2; sea: a1 a3"));
}

TEST(Album, favouritesKeepTheHistorysOrder)
{
    const QSet<QString> favorites{QStringLiteral("a1"), QStringLiteral("a3"), QStringLiteral("gone")};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), favorites, {}, dateInName)),
              QStringLiteral("Favorites*: a3 a1; Uncategorized: a3 a1 a2"));
}

TEST(Album, withoutAFavouriteInTheHistoryThereIsNoSuchAlbum)
{
    EXPECT_EQ(described(albumsOf(paths({"a1"}), {QStringLiteral("gone")}, {}, dateInName)),
              QStringLiteral("Uncategorized: a1"));
    EXPECT_TRUE(albumsOf({}, {QStringLiteral("gone")}, {}, dateInName).empty());
}

TEST(Album, aPromptNamedLikeASpecialAlbumIsToldApart)
{
    const TextMap prompts{{QStringLiteral("a1"), QStringLiteral("Favorites")},
                          {QStringLiteral("a2"), QStringLiteral("Uncategorized")}};
    EXPECT_EQ(described(albumsOf(paths({"a3", "a2", "a1"}), {QStringLiteral("a1")}, prompts, dateInName)),
              QStringLiteral("Favorites*: a1; Uncategorized: a3 a2; Favorites: a1"));
}

TEST(Album, anAlbumWhoseDateCannotBeReadKeepsItsPlace)
{
    const TextMap prompts{{QStringLiteral("a1"), QStringLiteral("one")},
                          {QStringLiteral("ax"), QStringLiteral("undated")},
                          {QStringLiteral("a3"), QStringLiteral("three")},
                          {QStringLiteral("a2"), QStringLiteral("two")}};
    EXPECT_EQ(described(albumsOf(paths({"a1", "ax", "a3", "a2"}), {}, prompts, dateInName)),
              QStringLiteral("three: a3; undated: ax; two: a2; one: a1"));
}

TEST(Album, anOriginalIsHiddenExactlyWhileItsVariantIsThere)
{
    const TextMap links{{QStringLiteral("a1"), QStringLiteral("a2")}, {QStringLiteral("a3"), QStringLiteral("gone")}};
    EXPECT_EQ(withoutHiddenOriginals(paths({"a3", "a2", "a1"}), links), paths({"a3", "a2"}));
    EXPECT_EQ(withoutHiddenOriginals(paths({"a3", "a1"}), links), paths({"a3", "a1"}));
    // A picture linked to itself hides itself.
    EXPECT_EQ(withoutHiddenOriginals(paths({"a3", "a2"}), {{QStringLiteral("a2"), QStringLiteral("a2")}}),
              paths({"a3"}));
}

} // namespace quorvane
