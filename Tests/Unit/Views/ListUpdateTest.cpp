#include "Views/Gallery/ListUpdate.h"

#include <gtest/gtest.h>

namespace quorvane {

TEST(ListUpdate, theChangedStretchIsTheSmallestOne)
{
    const auto letters = [](const char *text) {
        QStringList list;
        for (const QChar letter : QString::fromLatin1(text)) {
            list.append(letter);
        }
        return list;
    };
    struct Case
    {
        const char *before;
        const char *after;
        ChangedRows rows;
    };
    for (const Case &each :
         {Case{"", "", {0, 0, 0}}, Case{"abc", "abc", {3, 0, 0}}, Case{"", "ab", {0, 0, 2}}, Case{"ab", "", {0, 2, 0}},
          Case{"abc", "ac", {1, 1, 0}}, Case{"ac", "abc", {1, 0, 1}}, Case{"abc", "axc", {1, 1, 1}},
          Case{"aa", "aaa", {2, 0, 1}}, Case{"aaa", "aa", {2, 1, 0}}, Case{"ab", "ba", {0, 2, 2}}}) {
        EXPECT_EQ(changedRows(letters(each.before), letters(each.after)), each.rows)
            << each.before << " to " << each.after;
    }
}

} // namespace quorvane
