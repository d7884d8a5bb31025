#include "KeyringSession.h"

#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QStandardPaths>

#include <algorithm>
#include <csignal>

namespace quorvane {

namespace {

constexpr int kProcessLimitMs = 20'000;

QString missingProgram(const QStringList &programs)
{
    for (const QString &program : programs) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            return program + QStringLiteral(" is not installed");
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
    return missingProgram({QStringLiteral("dbus-daemon")});
}

QString whyNoKeyring()
{
    return missingProgram(
        {QStringLiteral("dbus-daemon"), QStringLiteral("gnome-keyring-daemon"), QStringLiteral("secret-tool")});
}

KeyringSession::KeyringSession()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    const QString runtime = m_home.path() + QStringLiteral("/run");
    QDir().mkdir(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    for (const char *name :
         {"DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION",
          "KDE_FULL_SESSION", "KDE_SESSION_VERSION", "GNOME_DESKTOP_SESSION_ID", "GNOME_KEYRING_CONTROL"}) {
        m_environment.remove(QString::fromLatin1(name));
    }
}

KeyringSession::~KeyringSession()
{
    m_migration.reset();
    if (!m_connectionName.isEmpty()) {
        QDBusConnection::disconnectFromBus(m_connectionName);
    }
    stopKeyring();
    end(&m_bus);
}

bool KeyringSession::startBus(const QByteArray &serviceFile)
{
    const QString folder = m_environment.value(QStringLiteral("XDG_RUNTIME_DIR"));
    m_address = QStringLiteral("unix:path=") + folder + QStringLiteral("/bus");
    // A configuration of its own, because the usual one would let every installed service be activated.
    const QByteArray configuration = "<busconfig><type>session</type><listen>" + m_address.toUtf8() +
                                     "</listen><servicedir>" + folder.toUtf8() +
                                     "/services</servicedir><policy context=\"default\"><allow send_destination=\"*\"/>"
                                     "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>";
    if (!putFile(folder + QStringLiteral("/bus.conf"), configuration) ||
        (!serviceFile.isEmpty() && !putFile(folder + QStringLiteral("/services/any.service"), serviceFile))) {
        return false;
    }
    m_bus.setProcessEnvironment(m_environment);
    m_bus.setProcessChannelMode(QProcess::SeparateChannels);
    m_bus.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--config-file=") + folder + QStringLiteral("/bus.conf"),
                                                QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    // The address is printed once the bus listens.
    if (!m_bus.waitForReadyRead(kProcessLimitMs)) {
        return false;
    }
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_address);
    m_connectionName = QStringLiteral("session in ") + folder;
    return QDBusConnection::connectToBus(m_address, m_connectionName).isConnected();
}

void KeyringSession::stopBus()
{
    QDBusConnection::disconnectFromBus(m_connectionName);
    end(&m_bus);
}

void KeyringSession::signalBus(int number) const
{
    ::kill(static_cast<pid_t>(m_bus.processId()), number);
}

QDBusConnection KeyringSession::connection() const
{
    return QDBusConnection(m_connectionName);
}

bool KeyringSession::startKeyring()
{
    m_keyring.setProcessEnvironment(m_environment);
    m_keyring.start(QStringLiteral("gnome-keyring-daemon"), {QStringLiteral("--foreground"), QStringLiteral("--unlock"),
                                                             QStringLiteral("--components=secrets")});
    m_keyring.write("password of the test");
    m_keyring.closeWriteChannel();
    return waitFor([this] {
        return connection().interface()->isServiceRegistered(QStringLiteral("org.freedesktop.secrets")).value();
    });
}

void KeyringSession::stopKeyring()
{
    end(&m_keyring);
}

bool KeyringSession::lockKeyring()
{
    QDBusMessage lock = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.secrets"), QStringLiteral("/org/freedesktop/secrets"),
        QStringLiteral("org.freedesktop.Secret.Service"), QStringLiteral("Lock"));
    lock.setArguments(
        {QVariant::fromValue(QList{QDBusObjectPath(QStringLiteral("/org/freedesktop/secrets/collection/login"))})});
    return connection().call(lock).type() == QDBusMessage::ReplyMessage;
}

bool KeyringSession::storeSecret(const QString &account, const QByteArray &secret, const QString &service,
                                 const QString &schema)
{
    const QStringList arguments{QStringLiteral("store"),      QStringLiteral("--label=") + service,
                                QStringLiteral("xdg:schema"), schema,
                                QStringLiteral("user"),       account,
                                QStringLiteral("server"),     service,
                                QStringLiteral("type"),       QStringLiteral("plaintext")};
    return run(QStringLiteral("secret-tool"), arguments, secret).first == 0;
}

std::optional<QByteArray> KeyringSession::secret(const QString &account, const QString &service)
{
    const auto [status, output] = run(QStringLiteral("secret-tool"), {QStringLiteral("lookup"), QStringLiteral("user"),
                                                                      account, QStringLiteral("server"), service});
    return status == 0 ? std::optional(output) : std::nullopt;
}

bool KeyringSession::runHelper(const QStringList &arguments)
{
    return run(QStringLiteral(KEYRING_HELPER), arguments).first == 0;
}

std::optional<int> KeyringSession::migrate(Patience patience)
{
    const std::optional<int> milliseconds = beginMigration(patience);
    return endMigration() ? milliseconds : std::nullopt;
}

std::optional<int> KeyringSession::quickestMigration()
{
    std::optional<int> quickest = migrate(Patience::Ours);
    for (int launch = 0; launch < 2 && quickest; ++launch) {
        const std::optional<int> milliseconds = migrate(Patience::Ours);
        quickest = milliseconds ? std::optional(std::min(*quickest, *milliseconds)) : std::nullopt;
    }
    return quickest;
}

std::optional<int> KeyringSession::beginMigration(Patience patience)
{
    m_migration = std::make_unique<QProcess>();
    m_migration->setProcessEnvironment(m_environment);
    QStringList arguments{QStringLiteral("migrate")};
    if (patience == Patience::Long) {
        arguments.append(QStringLiteral("patient"));
    }
    m_migration->start(QStringLiteral(KEYRING_HELPER), arguments);
    // Not waitForReadyRead(): the test's own peers on the bus need the event loop to answer.
    QByteArray line;
    const bool printed = waitFor([&] {
        line += m_migration->readAllStandardOutput();
        return line.endsWith('\n') || m_migration->state() == QProcess::NotRunning;
    });
    bool isNumber = false;
    const int milliseconds = line.trimmed().toInt(&isNumber);
    return printed && isNumber ? std::optional(milliseconds) : std::nullopt;
}

bool KeyringSession::endMigration()
{
    m_migration->closeWriteChannel();
    return waitFor([this] { return m_migration->state() == QProcess::NotRunning; }) &&
           m_migration->exitStatus() == QProcess::NormalExit && m_migration->exitCode() == 0;
}

QByteArray KeyringSession::keyFile() const
{
    return contentOf(m_home.path() + QStringLiteral("/Library/Application Support/Quorvane/keys.json"));
}

std::pair<int, QByteArray> KeyringSession::run(const QString &program, const QStringList &arguments,
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
