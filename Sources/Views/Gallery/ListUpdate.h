#pragma once

#include <QStringList>

namespace quorvane {

/// The one stretch in which two lists differ.
struct ChangedRows
{
    int first = 0;
    int removed = 0;
    int added = 0;

    friend bool operator==(const ChangedRows &, const ChangedRows &) = default;
};

/// What lies between the common beginning and the common end, so that a view keeps the rows, and its place, around a
/// picture that came or went.
[[nodiscard]] ChangedRows changedRows(const QStringList &before, const QStringList &after);

} // namespace quorvane
