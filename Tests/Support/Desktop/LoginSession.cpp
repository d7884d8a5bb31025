#include "Support/Desktop/LoginSession.h"

#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QStandardPaths>

#include <csignal>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int kProcessLimitMs = 20'000;

QString missingProgram(const QStringList &programs)
{
    for (const QString &program : programs) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            return program + u" is not installed"_s;
        }
    }
    return {};
}

void end(QProcess *process)
{
    if (process->state() != QProcess::NotRunning) {
        process->kill();
        process->waitForFinished(kProcessLimitMs);
    }
}

} // namespace

QString whyNoBus()
{
    return missingProgram({u"dbus-daemon"_s});
}

QString whyNoKeyring()
{
    return missingProgram({u"dbus-daemon"_s, u"gnome-keyring-daemon"_s, u"secret-tool"_s});
}

LoginSession::LoginSession()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    const QString runtime = m_home.path() + u"/run"_s;
    QDir().mkdir(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(u"XDG_RUNTIME_DIR"_s, runtime);
    for (const char *name :
         {"DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION",
          "KDE_FULL_SESSION", "KDE_SESSION_VERSION", "GNOME_DESKTOP_SESSION_ID", "GNOME_KEYRING_CONTROL"}) {
        m_environment.remove(QString::fromLatin1(name));
    }
}

LoginSession::~LoginSession()
{
    if (!m_connectionName.isEmpty()) {
        QDBusConnection::disconnectFromBus(m_connectionName);
    }
    stopKeyring();
    end(&m_bus);
}

bool LoginSession::startBus(const QByteArray &serviceFile)
{
    const QString folder = m_environment.value(u"XDG_RUNTIME_DIR"_s);
    m_address = u"unix:path="_s + folder + u"/bus"_s;
    // A configuration of its own, because the usual one would let every installed service be activated.
    const QByteArray configuration = "<busconfig><type>session</type><listen>" + m_address.toUtf8() +
                                     "</listen><servicedir>" + folder.toUtf8() +
                                     "/services</servicedir><policy context=\"default\"><allow send_destination=\"*\"/>"
                                     "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>";
    if (!putFile(folder + u"/bus.conf"_s, configuration) ||
        (!serviceFile.isEmpty() && !putFile(folder + u"/services/any.service"_s, serviceFile))) {
        return false;
    }
    m_bus.setProcessEnvironment(m_environment);
    m_bus.setProcessChannelMode(QProcess::SeparateChannels);
    m_bus.start(u"dbus-daemon"_s,
                {u"--config-file="_s + folder + u"/bus.conf"_s, u"--nofork"_s, u"--print-address=1"_s});
    // The address is printed once the bus listens.
    if (!m_bus.waitForReadyRead(kProcessLimitMs)) {
        return false;
    }
    m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_address);
    m_connectionName = u"session in "_s + folder;
    return QDBusConnection::connectToBus(m_address, m_connectionName).isConnected();
}

void LoginSession::stopBus()
{
    QDBusConnection::disconnectFromBus(m_connectionName);
    end(&m_bus);
}

void LoginSession::signalBus(int number) const
{
    ::kill(static_cast<pid_t>(m_bus.processId()), number);
}

QDBusConnection LoginSession::connection() const
{
    return QDBusConnection(m_connectionName);
}

bool LoginSession::startKeyring()
{
    m_keyring.setProcessEnvironment(m_environment);
    m_keyring.start(u"gnome-keyring-daemon"_s, {u"--foreground"_s, u"--unlock"_s, u"--components=secrets"_s});
    m_keyring.write("password of the test");
    m_keyring.closeWriteChannel();
    return waitFor(
        [this] { return connection().interface()->isServiceRegistered(u"org.freedesktop.secrets"_s).value(); });
}

void LoginSession::stopKeyring()
{
    end(&m_keyring);
}

bool LoginSession::lockKeyring()
{
    QDBusMessage lock = QDBusMessage::createMethodCall(u"org.freedesktop.secrets"_s, u"/org/freedesktop/secrets"_s,
                                                       u"org.freedesktop.Secret.Service"_s, u"Lock"_s);
    lock.setArguments({QVariant::fromValue(QList{QDBusObjectPath(u"/org/freedesktop/secrets/collection/login"_s)})});
    return connection().call(lock).type() == QDBusMessage::ReplyMessage;
}

bool LoginSession::storeSecret(const QString &account, const QByteArray &secret, const QString &service,
                               const QString &schema)
{
    const QStringList arguments{
        u"store"_s, u"--label="_s + service, u"xdg:schema"_s, schema, u"user"_s, account, u"server"_s, service,
        u"type"_s,  u"plaintext"_s};
    return run(u"secret-tool"_s, arguments, secret).first == 0;
}

std::optional<QByteArray> LoginSession::secret(const QString &account, const QString &service)
{
    const auto [status, output] = run(u"secret-tool"_s, {u"lookup"_s, u"user"_s, account, u"server"_s, service});
    return status == 0 ? std::optional(output) : std::nullopt;
}

QByteArray LoginSession::keyFile() const
{
    return contentOf(m_home.path() + u"/Library/Application Support/Quorvane/keys.json"_s);
}

std::pair<int, QByteArray> LoginSession::run(const QString &program, const QStringList &arguments,
                                             const QByteArray &input)
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(kProcessLimitMs) || process.exitStatus() != QProcess::NormalExit) {
        end(&process);
        return {-1, {}};
    }
    return {process.exitCode(), process.readAllStandardOutput()};
}

} // namespace quorvane
