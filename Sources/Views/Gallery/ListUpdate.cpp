#include "Views/Gallery/ListUpdate.h"

#include <algorithm>

namespace quorvane {

ChangedRows changedRows(const QStringList &before, const QStringList &after)
{
    const auto beginnings = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto first = beginnings.first - before.begin();
    const auto rests = std::mismatch(before.rbegin(), before.rend() - first, after.rbegin(), after.rend() - first);
    const auto kept = first + (rests.first - before.rbegin());
    return {int(first), int(before.size() - kept), int(after.size() - kept)};
}

} // namespace quorvane
