#include "Platform/System/GraphicsProcessor.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

bool hasGraphicsProcessor()
{
    // The second is of a driver that has no node among the first in every version.
    return !QDir(u"/dev/dri"_s).entryList({u"renderD*"_s}, QDir::System).isEmpty() ||
           QFile::exists(u"/dev/nvidiactl"_s);
}

} // namespace quorvane
