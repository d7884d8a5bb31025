#pragma once

#include <QString>
#include <QStringList>

/// What the user has to be told about files, found in the middle of work that has no way to tell it and goes on all the
/// same. Whoever speaks to the user takes the notices after each piece of work. Any thread.
namespace quorvane::StorageNotices {

/// Leaves a notice: one line, whole, for people.
void add(const QString &text);

/// The notices since the last call, the oldest first; each is given once.
[[nodiscard]] QStringList take();

} // namespace quorvane::StorageNotices
