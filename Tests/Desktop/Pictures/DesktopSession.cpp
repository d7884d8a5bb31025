#include "DesktopSession.h"

#include "Support/Files.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QString DesktopSession::missing(const QStringList &programs)
{
    return firstMissing(QStringList{u"dbus-daemon"_s} + programs);
}

DesktopSession::DesktopSession()
{
    m_environment.insert(u"PATH"_s, qEnvironmentVariable("PATH"));
    m_environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    m_environment.insert(u"HOME"_s, m_folder.filePath(u"home"_s));
    m_environment.insert(u"XDG_CONFIG_HOME"_s, m_folder.filePath(u"home/.config"_s));
    m_environment.insert(u"XDG_RUNTIME_DIR"_s, runtimeFolder());
    m_environment.insert(u"XDG_DATA_DIRS"_s, u"/usr/local/share:/usr/share"_s);
    m_environment.insert(u"XDG_CONFIG_DIRS"_s, u"/etc/xdg"_s);
    m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, busAddress());
    m_environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, addressOf(u"system-bus"_s));
    // There is no device to draw with, and nobody to read the screen to.
    m_environment.insert(u"LIBGL_ALWAYS_SOFTWARE"_s, u"1"_s);
    m_environment.insert(u"NO_AT_BRIDGE"_s, u"1"_s);
    QDir().mkpath(m_folder.filePath(u"home/.config"_s));
    QDir().mkpath(runtimeFolder());
    OwnedProgram::handOver(runtimeFolder(), OwnedProgram::User::Same);
    m_isReady = startBus(u"session-bus"_s) && startBus(u"system-bus"_s);
}

DesktopSession::~DesktopSession()
{
    // The last first: the buses go when nobody needs them any more.
    while (!m_programs.empty()) {
        m_programs.pop_back();
    }
    const QByteArray mark = '\0' + QByteArray("XDG_RUNTIME_DIR=") + QFile::encodeName(runtimeFolder()) + '\0';
    const QStringList processes = QDir(u"/proc"_s).entryList(QDir::Dirs);
    for (const QString &process : processes) {
        const pid_t id = process.toInt();
        if (id > 0 && ('\0' + contentOf(u"/proc/%1/environ"_s.arg(id))).contains(mark)) {
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
    return u"unix:path="_s + runtimeFolder() + '/'_L1 + bus;
}

bool DesktopSession::startBus(const QString &bus)
{
    const QString file = m_folder.filePath(bus + u".conf"_s);
    const QByteArray configuration =
        "<busconfig><type>session</type><listen>" + QFile::encodeName(addressOf(bus)) +
        "</listen><policy context=\"default\"><allow send_destination=\"*\"/><allow own=\"*\"/>"
        "<allow receive_sender=\"*\"/></policy></busconfig>";
    if (!putFile(file, configuration)) {
        return false;
    }
    // It says its address once it listens.
    return !start(u"dbus-daemon"_s, {u"--config-file="_s + file, u"--nofork"_s, u"--print-address=1"_s})
                .readLine()
                .isEmpty();
}

} // namespace quorvane
