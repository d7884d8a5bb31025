#pragma once

#include <QByteArray>
#include <QString>

namespace quorvane {

/// A picture as it goes into the library.
struct EncodedImage
{
    QByteArray bytes;  ///< The encoded picture.
    QString extension; ///< What its file gets: "png" or "jpg", without a dot.
};

} // namespace quorvane
