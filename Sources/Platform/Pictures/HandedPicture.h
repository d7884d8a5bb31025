#pragma once

#include "Platform/Failure.h"

#include <QImage>
#include <QString>

#include <functional>

namespace quorvane {

/// What a desktop is given as the picture.
struct HandedPicture
{
    QString path;
    bool isCopy = false; ///< path is a copy of ours (see PictureCopy), not the file that was asked for.
};

/// Tells whether a desktop takes a path as it is.
using TakesPath = std::function<bool(const QString &)>;

/// The picture at path itself where it decodes, is of a format that every desktop reads (PNG or JPEG), and the desktop
/// takes its path; else a copy under a new name that it takes. Decodes the picture to its end, because most desktops
/// report success for one that they cannot show. Fails where it does not decode, or no copy can be made. Any thread.
[[nodiscard]] Result<HandedPicture> handedPicture(const QString &path, const TakesPath &takesPath);

/// A copy of a picture that was made for the desktop, under a new name. Fails where none can be made. Any thread.
[[nodiscard]] Result<HandedPicture> handedPicture(const QImage &image);

} // namespace quorvane
