#include "Platform/Desktops/DesktopPictureCommand.h"

#include <QCoreApplication>
#include <QProcess>

#include <algorithm>
#include <utility>

#include <csignal>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(DesktopPictureCommand)
};

/// A program that writes more than this to its standard error is killed.
constexpr off_t kErrorLimitBytes = 1024L * 1024;
/// How much of that becomes the description.
constexpr qsizetype kDescriptionLength = 1000;
/// How often a running program's standard error is measured.
constexpr std::chrono::milliseconds kMeasuringInterval{50};

/// Takes a program's standard error. Not a pipe, because a program may leave another behind that paints the picture,
/// and that one would die of a closed pipe at its next message; not a file on disk, because it would grow there.
class ErrorFile
{
  public:
    ErrorFile()
        : m_descriptor(::memfd_create("wallpaper-command", MFD_CLOEXEC | MFD_ALLOW_SEALING))
    {
    }
    ~ErrorFile()
    {
        if (m_descriptor >= 0) {
            ::fcntl(m_descriptor, F_ADD_SEALS, F_SEAL_GROW); // Whoever was left behind writes no further.
            ::close(m_descriptor);
        }
    }
    ErrorFile(const ErrorFile &) = delete;
    ErrorFile &operator=(const ErrorFile &) = delete;
    ErrorFile(ErrorFile &&) = delete;
    ErrorFile &operator=(ErrorFile &&) = delete;

    [[nodiscard]] int descriptor() const { return m_descriptor; }

    [[nodiscard]] bool isTooLarge() const
    {
        struct stat state
        {
        };
        return ::fstat(m_descriptor, &state) == 0 && state.st_size > kErrorLimitBytes;
    }

    [[nodiscard]] QString text() const
    {
        QByteArray bytes(4 * kDescriptionLength, '\0');
        const ssize_t count = ::pread(m_descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()), 0);
        bytes.truncate(std::max<ssize_t>(count, 0));
        return QString::fromLocal8Bit(bytes).trimmed().left(kDescriptionLength);
    }

  private:
    int m_descriptor;
};

/// Kills the program and everything that it started, and waits for its end.
void killGroup(QProcess &process)
{
    // The program is its group's leader and not reaped yet, so the number cannot be anybody else's.
    ::kill(-static_cast<pid_t>(process.processId()), SIGKILL);
    process.waitForFinished();
}

} // namespace

DesktopPictureCommand::DesktopPictureCommand(QString program, QString reason,
                                             std::unique_ptr<DesktopPicture> screenSource,
                                             std::chrono::milliseconds limit)
    : m_program(std::move(program))
    , m_reason(std::move(reason))
    , m_screenSource(std::move(screenSource))
    , m_limit(limit)
{
}

QList<Screen> DesktopPictureCommand::screens()
{
    QList<Screen> screens = m_screenSource->screens();
    if (screens.isEmpty()) {
        screens.append({u"default"_s, QSize(0, 0)});
    }
    return screens;
}

Result<> DesktopPictureCommand::setPicture(const QString &path, const QList<Screen> &screens)
{
    const QDeadlineTimer deadline(m_limit);
    for (const Screen &screen : screens) {
        if (Result<> ran = run({path, screen.name}, deadline); !ran) {
            return ran;
        }
    }
    return kDone;
}

Result<> DesktopPictureCommand::run(const QStringList &arguments, const QDeadlineTimer &deadline) const
{
    const ErrorFile errors;
    QProcess process;
    process.setProgram(m_program);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setChildProcessModifier([descriptor = errors.descriptor()] {
        ::setpgid(0, 0); // A group of its own, so that all of it can be killed.
        if (descriptor >= 0) {
            ::dup2(descriptor, STDERR_FILENO);
        }
    });
    process.start();
    if (!process.waitForStarted()) {
        return Failure{
            Tr::tr("The wallpaper command \"%1\" cannot be started: %2").arg(m_program, process.errorString())};
    }
    while (!process.waitForFinished(static_cast<int>(kMeasuringInterval.count())) &&
           process.state() != QProcess::NotRunning) {
        if (deadline.hasExpired()) {
            killGroup(process);
            return Failure{Tr::tr("The wallpaper command \"%1\" did not end within %2 seconds")
                               .arg(m_program, QString::number(double(m_limit.count()) / 1000))};
        }
        if (errors.isTooLarge()) {
            killGroup(process);
        }
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0) {
        return kDone;
    }
    const QString text = errors.text();
    if (!text.isEmpty()) {
        return Failure{text};
    }
    return Failure{process.exitStatus() == QProcess::NormalExit
                       ? Tr::tr("The wallpaper command \"%1\" ended with status %2")
                             .arg(m_program, QString::number(process.exitCode()))
                       : Tr::tr("The wallpaper command \"%1\" was ended by a signal").arg(m_program)};
}

} // namespace quorvane
