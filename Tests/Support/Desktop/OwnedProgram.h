#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <csignal>

namespace quorvane {

/// A program that runs for as long as the object lives, and not a moment longer: it is ended by its process id, and the
/// kernel kills it if the test dies first.
class OwnedProgram
{
  public:
    /// Who runs it.
    enum class User {
        Same,
        NotRoot ///< "nobody" where the test runs as root, for programs that refuse to run as root.
    };

    /// What its standard input is.
    enum class Input { None, Lines };

    OwnedProgram(const QString &program, const QStringList &arguments, const QProcessEnvironment &environment,
                 const QString &workingFolder, User user = User::Same, Input input = Input::None);
    ~OwnedProgram();
    OwnedProgram(const OwnedProgram &) = delete;
    OwnedProgram &operator=(const OwnedProgram &) = delete;
    OwnedProgram(OwnedProgram &&) = delete;
    OwnedProgram &operator=(OwnedProgram &&) = delete;

    [[nodiscard]] bool isRunning() const { return m_process.state() == QProcess::Running; }
    [[nodiscard]] qint64 processId() const { return m_process.processId(); }

    /// The next line of its standard output, waiting up to thirty seconds for it; empty when there is none.
    [[nodiscard]] QByteArray readLine();

    /// Gives it a line of input.
    void writeLine(const QByteArray &line);

    /// Waits until it ended by itself, up to thirty seconds; true when it did and succeeded.
    [[nodiscard]] bool waitForSuccess();

    /// Everything it wrote to standard error so far.
    [[nodiscard]] QByteArray errors();

    /// Sends a signal, for example SIGSTOP; SIGKILL also waits for the end.
    void signal(int number);

    /// Asks it to end, and kills it when it does not within five seconds.
    void stop();

    /// Makes a folder that the user owns and nobody else may enter.
    static void handOver(const QString &folder, User user);

  private:
    QProcess m_process;
};

/// Runs a program to its end, at most thirty seconds, and returns its standard output; a null array when it failed.
[[nodiscard]] QByteArray outputOf(const QString &program, const QStringList &arguments,
                                  const QProcessEnvironment &environment);

/// The first of the programs that is not installed; empty when all are.
[[nodiscard]] QString firstMissing(const QStringList &programs);

} // namespace quorvane
