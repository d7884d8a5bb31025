#include "Platform/Files/StorageNotices.h"

#include <mutex>
#include <utility>

namespace quorvane::StorageNotices {

namespace {

// They belong to the process, like the files that they are about: the library and the keys have no object to keep them.
std::mutex mutex;
QStringList notices;

} // namespace

void add(const QString &text)
{
    const std::scoped_lock lock(mutex);
    notices.append(text);
}

QStringList take()
{
    const std::scoped_lock lock(mutex);
    return std::exchange(notices, {});
}

} // namespace quorvane::StorageNotices
