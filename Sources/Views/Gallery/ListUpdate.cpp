#include "Views/Gallery/ListUpdate.h"

#include <QHash>

#include <algorithm>

// The idea: the gallery is told a whole new list after every change, and a view that were given it as a new list would
// throw away its tiles, its place and the keyboard's place. So the rows that can stay are found: those whose order is
// the same in both lists, and of these the most, which is a longest rising run of their new places. What is not in the
// run is removed and put in anew, so a picture that moved is a removal and an insertion. Sorting by places with a
// binary search makes it n log n, because this runs on the main thread.
//
// Not taken: a general difference of texts (Myers), which is quadratic just when the two lists have little in common,
// as two albums have; here no name stands twice in a list, which is what makes the short way possible. And not taken:
// telling the view of moves. Qt's views animate them, but only one row or stretch at a time, and a picture moves here
// only when it becomes a favourite.

namespace quorvane {

namespace {

/// For each old row its place in the new list, -1 for none.
std::vector<int> newPlaces(const QStringList &before, const QStringList &after)
{
    QHash<QString, int> places;
    places.reserve(after.size());
    for (int row = 0; row < int(after.size()); ++row) {
        places.insert(after[row], row);
    }
    std::vector<int> found;
    found.reserve(std::size_t(before.size()));
    for (const QString &each : before) {
        found.push_back(places.value(each, -1));
    }
    return found;
}

/// The old rows of a longest run of places that rises: what can stay where it is. Each place is put behind the longest
/// run that it can follow, and the runs are read back from their ends.
std::vector<bool> keptRows(const std::vector<int> &places)
{
    std::vector<int> ends; ///< The old row that ends the best run of each length.
    std::vector<int> before(places.size(), -1);
    for (int row = 0; row < int(places.size()); ++row) {
        if (places[std::size_t(row)] < 0) {
            continue;
        }
        const auto length = std::lower_bound(ends.begin(), ends.end(), row, [&places](int end, int other) {
            return places[std::size_t(end)] < places[std::size_t(other)];
        });
        before[std::size_t(row)] = length == ends.begin() ? -1 : *std::prev(length);
        if (length == ends.end()) {
            ends.push_back(row);
        } else {
            *length = row;
        }
    }
    std::vector<bool> kept(places.size(), false);
    for (int row = ends.empty() ? -1 : ends.back(); row >= 0; row = before[std::size_t(row)]) {
        kept[std::size_t(row)] = true;
    }
    return kept;
}

/// The stretches of rows that are not kept.
std::vector<Rows> gapsIn(const std::vector<bool> &kept)
{
    std::vector<Rows> gaps;
    for (int row = 0; row < int(kept.size()); ++row) {
        if (kept[std::size_t(row)]) {
            continue;
        }
        if (!gaps.empty() && gaps.back().first + gaps.back().count == row) {
            ++gaps.back().count;
        } else {
            gaps.push_back({row, 1});
        }
    }
    return gaps;
}

} // namespace

ListUpdate listUpdate(const QStringList &before, const QStringList &after)
{
    if (before == after) {
        return {};
    }
    const std::vector<int> places = newPlaces(before, after);
    const std::vector<bool> keptBefore = keptRows(places);
    std::vector<bool> keptAfter(std::size_t(after.size()), false);
    for (std::size_t row = 0; row < places.size(); ++row) {
        if (keptBefore[row]) {
            keptAfter[std::size_t(places[row])] = true;
        }
    }
    ListUpdate update{gapsIn(keptBefore), gapsIn(keptAfter)};
    std::reverse(update.removed.begin(), update.removed.end());
    return update;
}

} // namespace quorvane
