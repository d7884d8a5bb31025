#include "Views/Gallery/PictureWidths.h"

#include "Views/Pictures/PictureDecoding.h"

#include <algorithm>

namespace quorvane {

PictureWidths readWidths(const std::vector<PictureEntry> &pictures, const PictureWidths &known)
{
    PictureWidths widths;
    widths.reserve(qsizetype(pictures.size()));
    for (const PictureEntry &each : pictures) {
        const auto before = known.constFind(each.path);
        const bool isKnown = before != known.constEnd() && before->stamp == each.stamp;
        widths.insert(each.path,
                      isKnown ? *before : PictureWidth{each.stamp, std::max(0, shownSize(each.path).width())});
    }
    return widths;
}

} // namespace quorvane
