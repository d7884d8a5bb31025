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

/// What makes one list of another: first the removals as they stand, from the end of the old list to its beginning,
/// then the insertions, from the beginning of the new list to its end.
struct ListUpdate
{
    std::vector<Rows> removed; ///< Rows of the old list.
    std::vector<Rows> added;   ///< Rows of the new list.

    friend bool operator==(const ListUpdate &, const ListUpdate &) = default;
};

/// The smallest update, so that a view keeps its tiles and its place around the pictures that came, went or moved.
/// Neither list names anything twice.
[[nodiscard]] ListUpdate listUpdate(const QStringList &before, const QStringList &after);

} // namespace quorvane
