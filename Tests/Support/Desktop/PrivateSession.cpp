#include "Support/Desktop/PrivateSession.h"

#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Who may be started by being called. Any service that is installed would be too many: portals, mounts, keyrings.
const QStringList kServices{u"ca.desrt.dconf.service"_s, u"org.xfce.Xfconf.service"_s};

/// The processes that have entry in their environment.
QList<pid_t> processesWith(const QByteArray &entry)
{
    QList<pid_t> found;
    const QStringList names = QDir(u"/proc"_s).entryList(QDir::Dirs);
    for (const QString &name : names) {
        bool isNumber = false;
        const pid_t process = name.toInt(&isNumber);
        if (isNumber && ('\0' + contentOf(u"/proc/%1/environ"_s.arg(name))).contains('\0' + entry + '\0')) {
            found.append(process);
        }
    }
    return found;
}

} // namespace

QString PrivateSession::missingProgram()
{
    return firstMissing({u"dbus-daemon"_s, u"setpriv"_s});
}

PrivateSession::PrivateSession(const QProcessEnvironment &variables, OwnedProgram::User user)
    : m_user(user)
    , m_environment(variables)
{
    const QString home = m_folder.path() + u"/home"_s;
    for (const QString &folder : {home, servicesFolder(), runtimeFolder(), configFolder()}) {
        QDir().mkpath(folder);
        OwnedProgram::handOver(folder, m_user);
    }
    for (const QString &service : kServices) {
        QFile::copy(u"/usr/share/dbus-1/services/"_s + service, servicesFolder() + '/'_L1 + service);
    }
    OwnedProgram::handOver(m_folder.path(), m_user);
    setVariable(u"PATH"_s, qEnvironmentVariable("PATH"));
    setVariable(u"LC_ALL"_s, u"C.UTF-8"_s);
    setVariable(u"HOME"_s, home);
    setVariable(u"XDG_CONFIG_HOME"_s, configFolder());
    setVariable(u"XDG_RUNTIME_DIR"_s, runtimeFolder());
    setVariable(u"DBUS_SESSION_BUS_ADDRESS"_s, busAddress());
    setVariable(u"DBUS_SYSTEM_BUS_ADDRESS"_s, u"unix:path="_s + runtimeFolder() + u"/system-bus"_s);
    // No device and no assistive technology is there to look for.
    setVariable(u"LIBGL_ALWAYS_SOFTWARE"_s, u"1"_s);
    setVariable(u"NO_AT_BRIDGE"_s, u"1"_s);
    m_systemBus = startBus(u"system-bus"_s);
    m_sessionBus = startBus(u"bus"_s);
    m_isReady = !m_systemBus->readLine().isEmpty() && !m_sessionBus->readLine().isEmpty();
    if (!m_isReady) {
        qWarning("A bus did not start: %s%s", m_systemBus->errors().constData(), m_sessionBus->errors().constData());
    }
}

PrivateSession::~PrivateSession()
{
    endPrograms();
}

QString PrivateSession::busAddress() const
{
    return u"unix:path="_s + runtimeFolder() + u"/bus"_s;
}

std::unique_ptr<OwnedProgram> PrivateSession::start(const QString &program, const QStringList &arguments,
                                                    OwnedProgram::Input input) const
{
    return std::make_unique<OwnedProgram>(program, arguments, m_environment, m_folder.path(), m_user, input);
}

OwnedProgram &PrivateSession::keep(const QString &program, const QStringList &arguments)
{
    m_kept.push_back(start(program, arguments));
    return *m_kept.back();
}

bool PrivateSession::run(const QString &program, const QStringList &arguments) const
{
    const auto running = start(program, arguments);
    const bool succeeded = running->waitForSuccess();
    if (!succeeded) {
        qWarning("%s failed: %s", qUtf8Printable(program), running->errors().constData());
    }
    return succeeded;
}

bool PrivateSession::give(const QString &path, const QByteArray &content)
{
    return putFile(path, content) &&
           QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
}

void PrivateSession::endPrograms() const
{
    const QByteArray mark = "XDG_RUNTIME_DIR=" + QFile::encodeName(runtimeFolder());
    // What ends may start something else before it is gone, so this goes on until nobody is left. The buses are
    // programs of the session by their environment too, and have objects of their own.
    const auto others = [&] {
        QList<pid_t> found = processesWith(mark);
        for (const auto *bus : {m_systemBus.get(), m_sessionBus.get()}) {
            found.removeAll(static_cast<pid_t>(bus->processId()));
        }
        return found;
    };
    const bool allEnded = waitFor([&] {
        const QList<pid_t> left = others();
        for (const pid_t process : left) {
            ::kill(process, SIGKILL);
        }
        return left.isEmpty();
    });
    if (!allEnded) {
        qWarning("Something of the session in %s does not end", qUtf8Printable(runtimeFolder()));
    }
}

std::unique_ptr<OwnedProgram> PrivateSession::startBus(const QString &name) const
{
    // Root is let in, as which the test itself may run.
    const QByteArray configuration =
        "<busconfig><type>session</type><auth>EXTERNAL</auth><listen>unix:path=" +
        QFile::encodeName(runtimeFolder() + '/'_L1 + name) + "</listen><servicedir>" +
        QFile::encodeName(servicesFolder()) +
        "</servicedir><policy context=\"default\"><allow user=\"*\"/><allow send_destination=\"*\"/>"
        "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>";
    const QString file = m_folder.path() + '/'_L1 + name + u".conf"_s;
    (void)give(file, configuration);
    // The address is printed once the bus listens.
    return start(u"dbus-daemon"_s, {u"--config-file="_s + file, u"--nofork"_s, u"--print-address=1"_s});
}

} // namespace quorvane
