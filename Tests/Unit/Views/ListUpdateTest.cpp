#include "Views/Gallery/ListUpdate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace quorvane {

namespace {

QStringList letters(const char *text)
{
    QStringList list;
    for (const QChar letter : QString::fromLatin1(text)) {
        list.append(letter);
    }
    return list;
}

/// What a view makes of its rows, and how many of them it made new.
std::pair<QStringList, int> applied(QStringList rows, const ListUpdate &update, const QStringList &after)
{
    int made = 0;
    for (const Rows &removed : update.removed) {
        rows.remove(removed.first, removed.count);
    }
    for (const Move &moved : update.moved) {
        rows.move(moved.from, moved.to);
    }
    for (const Rows &added : update.added) {
        for (int row = added.first; row < added.first + added.count; ++row, ++made) {
            rows.insert(row, after[row]);
        }
    }
    return {rows, made};
}

} // namespace

TEST(ListUpdate, onlyWhatCameIsNewAndOnlyWhatMovedIsMoved)
{
    struct Case
    {
        const char *before;
        const char *after;
        int made;
        int moved;
    };
    for (const Case &each :
         {Case{"", "", 0, 0}, Case{"abc", "abc", 0, 0}, Case{"", "ab", 2, 0}, Case{"ab", "", 0, 0},
          Case{"abc", "ac", 0, 0}, Case{"ac", "abc", 1, 0}, Case{"abc", "axc", 1, 0}, Case{"abcdef", "xacdfy", 2, 0},
          Case{"abcde", "eabcd", 0, 1}, Case{"eabcd", "abcde", 0, 1}, Case{"abcde", "adbce", 0, 1},
          Case{"ab", "ba", 0, 1}, Case{"abcd", "dcba", 0, 3}, Case{"abcde", "xebcy", 2, 1}}) {
        const QStringList before = letters(each.before);
        const QStringList after = letters(each.after);
        const ListUpdate update = listUpdate(before, after);
        const auto [rows, made] = applied(before, update, after);
        EXPECT_EQ(rows, after) << each.before << " to " << each.after;
        EXPECT_EQ(made, each.made) << each.before << " to " << each.after;
        EXPECT_EQ(update.moved.size(), each.moved) << each.before << " to " << each.after;
    }
}

TEST(ListUpdate, tooManyMovesAreRemovalsAndInsertions)
{
    QStringList before;
    for (int row = 0; row < 3 * ListUpdate::kMostMoves; ++row) {
        before.append(QString::number(row));
    }
    const QStringList after(before.rbegin(), before.rend());
    const ListUpdate update = listUpdate(before, after);
    EXPECT_TRUE(update.moved.empty());
    EXPECT_EQ(applied(before, update, after).first, after);
}

TEST(ListUpdate, neighboursGoAndComeTogether)
{
    const ListUpdate update = listUpdate(letters("abcdef"), letters("xyadef"));
    EXPECT_EQ(update, (ListUpdate{{{1, 2}}, {}, {{0, 2}}}));
}

TEST(ListUpdate, anyListBecomesAnyOther)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        QStringList before = letters("abcdefghijklmnop");
        QStringList after = before;
        std::shuffle(before.begin(), before.end(), random);
        std::shuffle(after.begin(), after.end(), random);
        before.resize(qsizetype(random() % 17));
        after.resize(qsizetype(random() % 17));
        EXPECT_EQ(applied(before, listUpdate(before, after), after).first, after);
    }
}

} // namespace quorvane
