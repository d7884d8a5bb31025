#pragma once

#include "Manager/Library/GalleryListing.h"

#include <QHash>

#include <vector>

namespace quorvane {

/// How wide a picture was when its file had that stamp.
struct PictureWidth
{
    FileStamp stamp;
    int pixels = 0; ///< As it is seen; 0 for one that cannot be read.

    friend bool operator==(const PictureWidth &, const PictureWidth &) = default;
};

/// By path.
using PictureWidths = QHash<QString, PictureWidth>;

/// The widths of those pictures. Only the headers of files that known does not tell are read; still some tenths of a
/// second for ten thousand new ones. Any thread.
[[nodiscard]] PictureWidths readWidths(const std::vector<PictureEntry> &pictures, const PictureWidths &known);

} // namespace quorvane
