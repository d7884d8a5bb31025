#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>

namespace quorvane {

/// An enlarged picture.
struct UpscaledImage
{
    QByteArray bytes;  ///< The encoded picture, as it goes into the library.
    QString extension; ///< "png" or "jpg", without a dot.
};

/// How far an enlargement on the machine is.
struct UpscaleProgress
{
    int tilesDone = 0;
    int tilesTotal = 0;                        ///< At least 1.
    std::chrono::milliseconds remaining{0};    ///< Estimated from the tiles done so far.
};

} // namespace quorvane
