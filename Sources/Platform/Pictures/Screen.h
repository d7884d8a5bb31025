#pragma once

#include <QList>
#include <QSize>
#include <QString>

namespace quorvane {

/// One attached screen.
struct Screen
{
    QString name; ///< The name that the desktop gives it, for example "DP-1". Never empty.
    QSize pixels; ///< Its size in device pixels; 0 x 0 only where no desktop tells it (see DesktopPictureCommand).

    friend bool operator==(const Screen &, const Screen &) = default;
};

} // namespace quorvane
