#include "Platform/Bus/Sandbox.h"

#include <QByteArray>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane {

bool isSandboxed()
{
    // The file is there in every Flatpak; the variable is what its tools look at, and what can be set to try it.
    return QFile::exists(u"/.flatpak-info"_s) || qgetenv("container") == "flatpak";
}

} // namespace quorvane
