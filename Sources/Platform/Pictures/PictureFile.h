#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

namespace quorvane {

/// What reading a picture's file gave.
struct PictureFile
{
    QImage image;      ///< Upright, as its orientation tag says; null when it could not be read.
    QByteArray format; ///< Found from the content, whatever the name says: "png", "jpeg", "webp", ...
    QString error;     ///< Why it could not be read; empty on success.
};

/// Decodes the file to its last row. With atMost the result is reduced to fit into it, keeping its shape, which needs
/// little memory. A picture may need up to 1 GiB of memory, that is 268 million pixels of colour; beyond that it is
/// refused. Blocks on the disk and the decoder; may be called from any thread.
[[nodiscard]] PictureFile readPicture(const QString &path, QSize atMost = {});

} // namespace quorvane
