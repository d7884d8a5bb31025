#pragma once

#include <QImage>
#include <QString>

#include <functional>

namespace quorvane {

/// What a desktop is given as the picture, or why it cannot be given anything.
struct HandedPicture
{
    QString path;
    bool isCopy = false; ///< path is a copy of ours (see PictureCopy), not the file that was asked for.
    QString error;       ///< Empty on success.
};

/// Tells whether a desktop takes a path as it is.
using TakesPath = std::function<bool(const QString &)>;

/// The picture at path itself where it decodes, is of a format that every desktop reads (PNG or JPEG), and the desktop
/// takes its path; else a copy under a new name that it takes. Decodes the picture to its end, because most desktops
/// report success for one that they cannot show.
[[nodiscard]] HandedPicture handedPicture(const QString &path, const TakesPath &takesPath);

/// A copy of a picture that was made for the desktop, under a new name.
[[nodiscard]] HandedPicture handedPicture(const QImage &image);

} // namespace quorvane
