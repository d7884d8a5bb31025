#pragma once

#include "Support/Desktop/OwnedProgram.h"

#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A session for the programs of a big desktop: a home, a runtime folder, a session bus on which nobody is started by
/// being called, and a system bus with nobody on it. What was started in it is gone with it, grandchildren too.
class DesktopSession
{
  public:
    /// The first of the programs, or of what the session itself needs, that is missing; empty when it can run.
    [[nodiscard]] static QString missing(const QStringList &programs);

    DesktopSession();
    ~DesktopSession();
    DesktopSession(const DesktopSession &) = delete;
    DesktopSession &operator=(const DesktopSession &) = delete;
    DesktopSession(DesktopSession &&) = delete;
    DesktopSession &operator=(DesktopSession &&) = delete;

    /// Whether the buses came up; look at this first.
    [[nodiscard]] bool isReady() const { return m_isReady; }

    [[nodiscard]] QString busAddress() const { return addressOf(u"session-bus"_s); }
    [[nodiscard]] QString folder() const { return m_folder.path(); }
    [[nodiscard]] QString runtimeFolder() const { return m_folder.filePath(u"run"_s); }

    /// What programs of the session are started with; add to it before.
    [[nodiscard]] QProcessEnvironment &environment() { return m_environment; }

    /// The program runs until it or the session ends.
    OwnedProgram &start(const QString &program, const QStringList &arguments = {});

  private:
    [[nodiscard]] QString addressOf(const QString &bus) const;
    [[nodiscard]] bool startBus(const QString &bus);

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    std::vector<std::unique_ptr<OwnedProgram>> m_programs;
    bool m_isReady = false;
};

} // namespace quorvane
