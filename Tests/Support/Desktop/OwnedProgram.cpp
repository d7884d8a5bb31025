#include "Support/Desktop/OwnedProgram.h"

#include <QFile>
#include <QStandardPaths>

#include <sys/prctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr uid_t kNobody = 65534;
constexpr int kPatienceMilliseconds = 5'000;
constexpr int kProgramLimitMilliseconds = 30'000;

bool mustChangeUser(OwnedProgram::User user)
{
    return user == OwnedProgram::User::NotRoot && ::geteuid() == 0;
}

} // namespace

OwnedProgram::OwnedProgram(const QString &program, const QStringList &arguments, const QProcessEnvironment &environment,
                           const QString &workingFolder, User user, Input input)
{
    m_process.setProcessEnvironment(environment);
    m_process.setWorkingDirectory(workingFolder);
    if (input == Input::None) {
        m_process.setStandardInputFile(QProcess::nullDevice());
    }
    m_process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    if (mustChangeUser(user)) {
        // Changing the user clears the signal above, so setpriv sets it again; it then becomes the program itself.
        const QString id = QString::number(kNobody);
        m_process.start(u"setpriv"_s, QStringList{u"--reuid="_s + id, u"--regid="_s + id, u"--clear-groups"_s,
                                                  u"--pdeathsig=KILL"_s, program} +
                                          arguments);
    } else {
        m_process.start(program, arguments);
    }
    m_process.waitForStarted(kProgramLimitMilliseconds);
}

OwnedProgram::~OwnedProgram()
{
    stop();
}

QByteArray OwnedProgram::readLine()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(kProgramLimitMilliseconds)) {
            return {};
        }
    }
    return m_process.readLine().trimmed();
}

void OwnedProgram::writeLine(const QByteArray &line)
{
    m_process.write(line + '\n');
    m_process.waitForBytesWritten(kProgramLimitMilliseconds);
}

bool OwnedProgram::waitForSuccess()
{
    return m_process.waitForFinished(kProgramLimitMilliseconds) && m_process.exitStatus() == QProcess::NormalExit &&
           m_process.exitCode() == 0;
}

QByteArray OwnedProgram::errors()
{
    return m_process.readAllStandardError();
}

void OwnedProgram::signal(int number)
{
    if (!isRunning()) {
        return;
    }
    ::kill(static_cast<pid_t>(m_process.processId()), number);
    if (number == SIGKILL) {
        m_process.waitForFinished(kProgramLimitMilliseconds);
    }
}

void OwnedProgram::stop()
{
    if (isRunning()) {
        signal(SIGCONT); // A stopped program could not end.
        m_process.terminate();
        if (!m_process.waitForFinished(kPatienceMilliseconds)) {
            signal(SIGKILL);
        }
    }
}

void OwnedProgram::handOver(const QString &folder, User user)
{
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (mustChangeUser(user) && ::chown(QFile::encodeName(folder).constData(), kNobody, kNobody) != 0) {
        qWarning("The folder could not be handed over");
    }
}

QByteArray outputOf(const QString &program, const QStringList &arguments, const QProcessEnvironment &environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
    if (!process.waitForFinished(kProgramLimitMilliseconds)) {
        process.kill();
        process.waitForFinished();
        return {};
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        return {};
    }
    const QByteArray output = process.readAllStandardOutput();
    return output.isNull() ? QByteArray("") : output;
}

QString firstMissing(const QStringList &programs)
{
    for (const QString &program : programs) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            return program;
        }
    }
    return {};
}

} // namespace quorvane
