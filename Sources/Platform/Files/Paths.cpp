#include "Platform/Files/Paths.h"

#include <QDir>
#include <QFile>

namespace quorvane::Paths {

namespace {

QString fromEnvironment(const char *variable, QLatin1String fallback)
{
    const QString value = QFile::decodeName(qgetenv(variable));
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value) : home() + QLatin1Char('/') + fallback;
}

} // namespace

QString home()
{
    return QDir::cleanPath(QDir::homePath());
}

QString configHome()
{
    return fromEnvironment("XDG_CONFIG_HOME", QLatin1String(".config"));
}

QString dataHome()
{
    return fromEnvironment("XDG_DATA_HOME", QLatin1String(".local/share"));
}

QString stateHome()
{
    return fromEnvironment("XDG_STATE_HOME", QLatin1String(".local/state"));
}

QString cacheHome()
{
    return fromEnvironment("XDG_CACHE_HOME", QLatin1String(".cache"));
}

} // namespace quorvane::Paths
