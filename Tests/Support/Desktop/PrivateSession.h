#pragma once

#include "Support/Desktop/OwnedProgram.h"

#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace quorvane {

using namespace Qt::StringLiterals;

/// What a desktop needs besides a display: a home, a session bus, and a system bus on which nobody is. What is started
/// is gone with the object, also what its programs started themselves.
class PrivateSession
{
  public:
    /// The first program that is missing here; empty when it can run.
    [[nodiscard]] static QString missingProgram();

    /// variables are added to the environment: the display, XDG_CURRENT_DESKTOP, ... The user runs everything in it.
    explicit PrivateSession(const QProcessEnvironment &variables = {},
                            OwnedProgram::User user = OwnedProgram::User::NotRoot);
    ~PrivateSession();
    PrivateSession(const PrivateSession &) = delete;
    PrivateSession &operator=(const PrivateSession &) = delete;
    PrivateSession(PrivateSession &&) = delete;
    PrivateSession &operator=(PrivateSession &&) = delete;

    /// Whether both buses came up; look at this first.
    [[nodiscard]] bool isReady() const { return m_isReady; }

    [[nodiscard]] QString busAddress() const;
    [[nodiscard]] QString runtimeFolder() const { return m_folder.path() + u"/run"_s; }
    [[nodiscard]] QString configFolder() const { return m_folder.path() + u"/home/.config"_s; }
    /// Who may be started by being called.
    [[nodiscard]] QString servicesFolder() const { return m_folder.path() + u"/services"_s; }
    /// What programs are started with from now on.
    [[nodiscard]] QProcessEnvironment &environment() { return m_environment; }
    [[nodiscard]] const QProcessEnvironment &environment() const { return m_environment; }
    void setVariable(const QString &name, const QString &value) { m_environment.insert(name, value); }

    /// Starts a program in the session.
    [[nodiscard]] std::unique_ptr<OwnedProgram> start(const QString &program, const QStringList &arguments = {},
                                                      OwnedProgram::Input input = OwnedProgram::Input::None) const;

    /// The same until the session ends.
    OwnedProgram &keep(const QString &program, const QStringList &arguments = {});

    /// Runs one to its end; false when it failed.
    [[nodiscard]] bool run(const QString &program, const QStringList &arguments) const;

    /// Puts content at path for the session's programs.
    [[nodiscard]] static bool give(const QString &path, const QByteArray &content);

    /// Ends every program in the session except the buses, however it was started.
    void endPrograms() const;

  private:
    [[nodiscard]] std::unique_ptr<OwnedProgram> startBus(const QString &name) const;

    OwnedProgram::User m_user;
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    std::unique_ptr<OwnedProgram> m_systemBus;
    std::unique_ptr<OwnedProgram> m_sessionBus;
    std::vector<std::unique_ptr<OwnedProgram>> m_kept;
    bool m_isReady = false;
};

} // namespace quorvane
