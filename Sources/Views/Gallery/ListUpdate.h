#pragma once

#include <QStringList>

#include <vector>

namespace quorvane {

/// Rows next to each other.
struct Rows
{
    int first = 0;
    int count = 0;

    friend bool operator==(const Rows &, const Rows &) = default;
};

/// A row that goes elsewhere; to is its place once it is there.
struct Move
{
    int from = 0;
    int to = 0;

    friend bool operator==(const Move &, const Move &) = default;
};

/// What makes one list of another: first the removals as they stand, from the end of the old list to its beginning,
/// then the moves one after the other, then the insertions, from the beginning of the new list to its end.
struct ListUpdate
{
    /// Beyond it, what changes places is removed and added anew.
    static constexpr int kMostMoves = 64;

    std::vector<Rows> removed; ///< Rows of the old list.
    std::vector<Move> moved;   ///< Rows of what is left of it.
    std::vector<Rows> added;   ///< Rows of the new list.

    friend bool operator==(const ListUpdate &, const ListUpdate &) = default;
};

/// The smallest update, so that a view keeps its tiles, its place and the keyboard's place around the pictures that
/// came, went or moved. Neither list names anything twice.
[[nodiscard]] ListUpdate listUpdate(const QStringList &before, const QStringList &after);

} // namespace quorvane
