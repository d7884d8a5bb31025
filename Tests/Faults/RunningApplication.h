#pragma once

#include "Support/CommandRun.h"

#include <QProcess>
#include <QTemporaryDir>

namespace quorvane {

/// A session bus on which nobody else is, for as long as the object lives. May be used on a thread without an event
/// loop.
class PrivateBus
{
  public:
    /// Whether the programs for it, and for waiting on it, are here.
    [[nodiscard]] static bool isInstalled();

    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;
    PrivateBus(PrivateBus &&) = delete;
    PrivateBus &operator=(PrivateBus &&) = delete;

    [[nodiscard]] bool isThere() const { return m_isThere; }
    [[nodiscard]] QString address() const;

    /// variables with what programs need to find this bus and no other.
    [[nodiscard]] QProcessEnvironment environment(QProcessEnvironment variables) const;

  private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    bool m_isThere = false;
};

/// The application in the tray, without a display, on a bus. May be used on a thread without an event loop.
class RunningApplication
{
  public:
    /// Starts it, and waits until it can be asked.
    RunningApplication(const PrivateBus &bus, const QProcessEnvironment &variables);
    ~RunningApplication();
    RunningApplication(const RunningApplication &) = delete;
    RunningApplication &operator=(const RunningApplication &) = delete;
    RunningApplication(RunningApplication &&) = delete;
    RunningApplication &operator=(RunningApplication &&) = delete;

    [[nodiscard]] bool isRunning();

    /// Waits until it has ended, and tells whether it did so in order. Before, it must have been asked to.
    [[nodiscard]] bool hasEndedWell();

    /// Everything that it wrote to standard error so far.
    [[nodiscard]] QByteArray errors() { return m_errors += m_process.readAllStandardError(); }

  private:
    QProcess m_process;
    QByteArray m_errors;
};

} // namespace quorvane
