#pragma once

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

/// What reading a picture's file gave.
struct PictureFile
{
    QImage image;      ///< Upright, as its orientation tag says; null when it could not be read.
    QByteArray format; ///< Found from the content, whatever the name says: "png", "jpeg", "webp", ...
    QString error;     ///< Why it could not be read; empty on success.
};

/// Decodes the regular file to its last row. With atMost the result is reduced to fit into it, keeping its shape, which
/// needs little memory. A picture may need up to 1 GiB of memory, that is 268 million pixels of colour; beyond that it
/// is refused. Blocks on the disk and the decoder; may be called from any thread.
[[nodiscard]] PictureFile readPicture(const QString &path, QSize atMost = {});

} // namespace quorvane
