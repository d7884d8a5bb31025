#pragma once

#include "Manager/Library/GalleryListing.h"

#include <QString>

namespace quorvane {

/// The address under which QML asks for the thumbnail of the picture at path. It changes when the file changes, so that
/// no cache on the way shows what is gone.
[[nodiscard]] QString thumbnailUrl(const QString &path);
/// As above, for a file whose entry has been read already.
[[nodiscard]] QString thumbnailUrl(const QString &path, const FileStamp &stamp);

/// The same for the picture at the size it is shown in.
[[nodiscard]] QString pictureUrl(const QString &path);

/// The path in an address's part behind the provider's name.
[[nodiscard]] QString pathFromPictureId(const QString &id);

} // namespace quorvane
