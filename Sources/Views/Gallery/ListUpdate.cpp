#include "Views/Gallery/ListUpdate.h"

#include <QHash>

#include <algorithm>

// The idea: the gallery is told a whole new list after every change, and a view that were given it as a new list would
// throw away its tiles, its place and the keyboard's place. So the rows that can stay are found: those whose order is
// the same in both lists, and of these the most, which is a longest rising run of their new places. Of the others,
// those that are in both lists are moved, each behind the row that it follows in the new list, so that the keyboard
// stays with a picture that becomes a favourite. Finding them is n log n with a binary search, because this runs on the
// main thread.
//
// A view takes its time for each move. Where a great many rows change places, which only another program's work on the
// library can bring about, they are removed and put in anew, a stretch at a time.
//
// Not taken: a general difference of texts (Myers), which is quadratic just when the two lists have little in common,
// as two albums have; here no name stands twice in a list, which is what makes the short way possible.

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

/// What brings the rows that are in both lists into the order of their new places, when those that are kept stay where
/// they are.
std::vector<Move> movesOf(const std::vector<int> &places, const std::vector<bool> &kept)
{
    std::vector<int> order;
    std::vector<int> moving;
    for (std::size_t row = 0; row < places.size(); ++row) {
        if (places[row] >= 0) {
            order.push_back(places[row]);
            if (!kept[row]) {
                moving.push_back(places[row]);
            }
        }
    }
    std::vector<int> sorted = order;
    std::sort(sorted.begin(), sorted.end());
    std::sort(moving.begin(), moving.end());
    std::vector<Move> moves;
    for (const int place : moving) {
        const auto from = std::find(order.begin(), order.end(), place);
        const int fromRow = int(from - order.begin());
        order.erase(from);
        const auto own = std::lower_bound(sorted.begin(), sorted.end(), place);
        const auto to =
            own == sorted.begin() ? order.begin() : std::next(std::find(order.begin(), order.end(), *std::prev(own)));
        const int toRow = int(to - order.begin());
        order.insert(to, place);
        if (fromRow != toRow) {
            moves.push_back({fromRow, toRow});
        }
    }
    return moves;
}

} // namespace

ListUpdate listUpdate(const QStringList &before, const QStringList &after)
{
    if (before == after) {
        return {};
    }
    const std::vector<int> places = newPlaces(before, after);
    std::vector<bool> stays = keptRows(places);
    ListUpdate update;
    const auto isInBoth = [](int place) { return place >= 0; };
    const auto moving =
        std::count_if(places.begin(), places.end(), isInBoth) - std::count(stays.begin(), stays.end(), true);
    if (moving <= ListUpdate::kMostMoves) {
        update.moved = movesOf(places, stays);
        std::transform(places.begin(), places.end(), stays.begin(), isInBoth);
    }
    std::vector<bool> wasThere(std::size_t(after.size()), false);
    for (std::size_t row = 0; row < places.size(); ++row) {
        if (stays[row]) {
            wasThere[std::size_t(places[row])] = true;
        }
    }
    update.removed = gapsIn(stays);
    std::reverse(update.removed.begin(), update.removed.end());
    update.added = gapsIn(wasThere);
    return update;
}

} // namespace quorvane
