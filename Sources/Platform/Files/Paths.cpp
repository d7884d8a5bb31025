#include "Platform/Files/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <vector>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane::Paths {

namespace {

QString fromEnvironment(const char *variable, QLatin1String fallback)
{
    const QString value = QFile::decodeName(qgetenv(variable));
    return QDir::isAbsolutePath(value) ? QDir::cleanPath(value) : home() + '/'_L1 + fallback;
}

/// The folder that the system has for the account of this process; empty where there is none to work in.
QString accountHome()
{
    std::vector<char> buffer(4096);
    passwd account{};
    passwd *found = nullptr;
    while (::getpwuid_r(::geteuid(), &account, buffer.data(), buffer.size(), &found) == ERANGE) {
        buffer.resize(buffer.size() * 2);
    }
    const QString folder = found != nullptr ? QDir::cleanPath(QFile::decodeName(found->pw_dir)) : QString();
    // Accounts of services have "/" or a folder that does not exist, and making it would be no favour.
    return QDir::isAbsolutePath(folder) && folder != "/"_L1 && QFileInfo(folder).isDir() ? folder : QString();
}

} // namespace

QString home()
{
    const QString told = QFile::decodeName(qgetenv("HOME"));
    return QDir::isAbsolutePath(told) ? QDir::cleanPath(told) : accountHome();
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

} // namespace quorvane::Paths
