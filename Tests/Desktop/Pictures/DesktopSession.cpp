#include "DesktopSession.h"

#include "Support/Files.h"

namespace quorvane {

QString DesktopSession::missing(const QStringList &programs)
{
    return firstMissing(QStringList{QStringLiteral("dbus-daemon")} + programs);
}

DesktopSession::DesktopSession()
{
    m_environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    m_environment.insert(QStringLiteral("HOME"), m_folder.filePath(QStringLiteral("home")));
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.filePath(QStringLiteral("home/.config")));
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtimeFolder());
    m_environment.insert(QStringLiteral("XDG_DATA_DIRS"), QStringLiteral("/usr/local/share:/usr/share"));
    m_environment.insert(QStringLiteral("XDG_CONFIG_DIRS"), QStringLiteral("/etc/xdg"));
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress());
    m_environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), addressOf(QStringLiteral("system-bus")));
    // There is no device to draw with, and nobody to read the screen to.
    m_environment.insert(QStringLiteral("LIBGL_ALWAYS_SOFTWARE"), QStringLiteral("1"));
    m_environment.insert(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
    QDir().mkpath(m_folder.filePath(QStringLiteral("home/.config")));
    QDir().mkpath(runtimeFolder());
    OwnedProgram::handOver(runtimeFolder(), OwnedProgram::User::Same);
    m_isReady = startBus(QStringLiteral("session-bus")) && startBus(QStringLiteral("system-bus"));
}

DesktopSession::~DesktopSession()
{
    // The last first: the buses go when nobody needs them any more.
    while (!m_programs.empty()) {
        m_programs.pop_back();
    }
    const QByteArray mark = '\0' + QByteArray("XDG_RUNTIME_DIR=") + QFile::encodeName(runtimeFolder()) + '\0';
    const QStringList processes = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &process : processes) {
        const pid_t id = process.toInt();
        if (id > 0 && ('\0' + contentOf(QStringLiteral("/proc/%1/environ").arg(id))).contains(mark)) {
            ::kill(id, SIGKILL);
        }
    }
}

OwnedProgram &DesktopSession::start(const QString &program, const QStringList &arguments)
{
    m_programs.push_back(std::make_unique<OwnedProgram>(program, arguments, m_environment, m_folder.path()));
    return *m_programs.back();
}

QString DesktopSession::addressOf(const QString &bus) const
{
    return QStringLiteral("unix:path=") + runtimeFolder() + QLatin1Char('/') + bus;
}

bool DesktopSession::startBus(const QString &bus)
{
    const QString file = m_folder.filePath(bus + QStringLiteral(".conf"));
    const QByteArray configuration =
        "<busconfig><type>session</type><listen>" + QFile::encodeName(addressOf(bus)) +
        "</listen><policy context=\"default\"><allow send_destination=\"*\"/><allow own=\"*\"/>"
        "<allow receive_sender=\"*\"/></policy></busconfig>";
    if (!putFile(file, configuration)) {
        return false;
    }
    // It says its address once it listens.
    return !start(QStringLiteral("dbus-daemon"), {QStringLiteral("--config-file=") + file, QStringLiteral("--nofork"),
                                                  QStringLiteral("--print-address=1")})
                .readLine()
                .isEmpty();
}

} // namespace quorvane
