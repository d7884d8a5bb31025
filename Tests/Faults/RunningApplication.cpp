#include "Faults/RunningApplication.h"

#include "Support/Files.h"

#include <QStandardPaths>

#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::seconds kLimit{30}; ///< For what a busy machine does in one.

} // namespace

bool PrivateBus::isInstalled()
{
    return !QStandardPaths::findExecutable(u"dbus-daemon"_s).isEmpty() &&
           !QStandardPaths::findExecutable(u"gdbus"_s).isEmpty();
}

PrivateBus::PrivateBus()
{
    const QByteArray configuration = "<busconfig><type>session</type><auth>EXTERNAL</auth><listen>" +
                                     address().toUtf8() +
                                     "</listen><policy context=\"default\"><allow user=\"*\"/>"
                                     "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/><allow own=\"*\"/>"
                                     "</policy></busconfig>";
    const QString file = m_folder.filePath(u"bus.conf"_s);
    m_isThere = putFile(file, configuration);
    m_daemon.start(u"dbus-daemon"_s, {u"--config-file="_s + file, u"--nofork"_s, u"--print-address=1"_s});
    // The address is printed once the bus listens.
    m_isThere = m_isThere && m_daemon.waitForReadyRead();
}

PrivateBus::~PrivateBus()
{
    m_daemon.terminate();
    m_daemon.waitForFinished();
}

QString PrivateBus::address() const
{
    return u"unix:path="_s + m_folder.filePath(u"bus"_s);
}

QProcessEnvironment PrivateBus::environment(QProcessEnvironment variables) const
{
    variables.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
    variables.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address());
    variables.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, u"unix:path=/nonexistent"_s);
    return variables;
}

RunningApplication::RunningApplication(const PrivateBus &bus, const QProcessEnvironment &variables)
{
    QProcessEnvironment ours = bus.environment(variables);
    ours.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    m_process.setProcessEnvironment(ours);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.start(QStringLiteral(QUORVANE_PROGRAM), {u"--hidden"_s});
    QProcess wait;
    wait.start(u"gdbus"_s, {u"wait"_s, u"--address"_s, bus.address(), u"--timeout"_s, QString::number(kLimit.count()),
                            u"app.quorvane.Quorvane"_s});
    wait.waitForFinished(static_cast<int>(std::chrono::milliseconds(2 * kLimit).count()));
}

RunningApplication::~RunningApplication()
{
    m_process.kill();
    m_process.waitForFinished();
}

bool RunningApplication::isRunning()
{
    (void)m_process.waitForFinished(0);
    return m_process.state() == QProcess::Running;
}

bool RunningApplication::hasEndedWell()
{
    m_process.waitForFinished(static_cast<int>(std::chrono::milliseconds(kLimit).count()));
    return m_process.state() == QProcess::NotRunning && m_process.exitStatus() == QProcess::NormalExit &&
           m_process.exitCode() == 0;
}

} // namespace quorvane
