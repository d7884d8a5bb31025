#pragma once

#include "Platform/Failure.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

namespace quorvane {

/// The largest picture that is decoded, in mebibytes of pixels. Qt stops at 256 unless told otherwise; our own fourfold
/// results of 4K pictures have 530.
inline constexpr int kLargestDecodedMebibytes = 1024;

/// Makes Qt decode pictures of up to that size. The limit belongs to the whole process and is a plain number, so the
/// program calls this before it has threads. Every later call does nothing.
void allowLargePictures();

/// A picture that was read from a file.
struct PictureFile
{
    QImage image;      ///< Upright, as its orientation tag says.
    QByteArray format; ///< Found from the content, whatever the name says: "png", "jpeg", "webp", ...
};

/// Decodes the regular file to its last row. With atMost the result is reduced to fit into it, keeping its shape, which
/// needs little memory. A picture may need up to 1 GiB of memory, that is 268 million pixels of colour; beyond that it
/// is refused. A Failure is a whole sentence that says why. Blocks on the disk and the decoder; any thread.
[[nodiscard]] Result<PictureFile> readPicture(const QString &path, QSize atMost = {});

} // namespace quorvane
