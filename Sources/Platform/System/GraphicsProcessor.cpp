#include "Platform/System/GraphicsProcessor.h"

#include <QDir>
#include <QFile>

namespace quorvane {

bool hasGraphicsProcessor()
{
    // The second is of a driver that has no node among the first in every version.
    return !QDir(QStringLiteral("/dev/dri")).entryList({QStringLiteral("renderD*")}, QDir::System).isEmpty() ||
           QFile::exists(QStringLiteral("/dev/nvidiactl"));
}

} // namespace quorvane
