#include "Platform/Files/Paths.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace quorvane::Paths {

namespace {

QString fromEnvironment(const char *variable, QLatin1String fallback)
{
    const QString value = QFile::decodeName(qgetenv(variable));
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value) : home() + '/'_L1 + fallback;
}

} // namespace

QString home()
{
    return QDir::cleanPath(QDir::homePath());
}

QString configHome()
{
    return fromEnvironment("XDG_CONFIG_HOME", ".config"_L1);
}

QString dataHome()
{
    return fromEnvironment("XDG_DATA_HOME", ".local/share"_L1);
}

QString stateHome()
{
    return fromEnvironment("XDG_STATE_HOME", ".local/state"_L1);
}

QString cacheHome()
{
    return fromEnvironment("XDG_CACHE_HOME", ".cache"_L1);
}

} // namespace quorvane::Paths
