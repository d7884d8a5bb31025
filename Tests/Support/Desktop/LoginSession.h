#pragma once

#include "Support/PrivateHome.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <optional>
#include <utility>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A login session of the test's own: home, run-time folder and message bus, a keyring where a test wants one, and no
/// desktop. Everything that it starts ends with it.
class LoginSession
{
  public:
    LoginSession();
    ~LoginSession();
    LoginSession(const LoginSession &) = delete;
    LoginSession &operator=(const LoginSession &) = delete;

    [[nodiscard]] const PrivateHome &home() const { return m_home; }

    /// What is started in this session runs in this environment.
    [[nodiscard]] QProcessEnvironment &environment() { return m_environment; }
    [[nodiscard]] const QProcessEnvironment &environment() const { return m_environment; }

    /// Starts a bus; with serviceFile, the content of a D-Bus service file, the service described there can be
    /// activated.
    [[nodiscard]] bool startBus(const QByteArray &serviceFile = {});

    void stopBus();
    void signalBus(int number) const;

    /// Starts the keyring daemon and unlocks its keyring, which is made at the first start.
    [[nodiscard]] bool startKeyring();
    void stopKeyring();
    [[nodiscard]] bool lockKeyring();
    [[nodiscard]] qint64 keyringPid() const { return m_keyring.processId(); }

    /// Stores an item with secret-tool under the attributes that QtKeychain gives, or others.
    [[nodiscard]] bool storeSecret(const QString &account, const QByteArray &secret,
                                   const QString &service = u"app.quorvane.Quorvane"_s,
                                   const QString &schema = u"org.qt.keychain"_s);
    /// What secret-tool finds.
    [[nodiscard]] std::optional<QByteArray> secret(const QString &account,
                                                   const QString &service = u"app.quorvane.Quorvane"_s);

    /// The key file, or a null array.
    [[nodiscard]] QByteArray keyFile() const;

    /// A connection of the test itself to the bus.
    [[nodiscard]] QDBusConnection connection() const;

    /// Runs the program to its end; its exit status, and what it printed.
    [[nodiscard]] std::pair<int, QByteArray> run(const QString &program, const QStringList &arguments,
                                                 const QByteArray &input = {});

  private:
    PrivateHome m_home;
    QProcessEnvironment m_environment; ///< After m_home, which sets the variables that it copies.
    QString m_address;
    QString m_connectionName;
    QProcess m_bus;
    QProcess m_keyring;
};

/// The reason why tests with a real keyring cannot run here; empty when they can.
[[nodiscard]] QString whyNoKeyring();
/// The reason why tests with a private bus cannot run here; empty when they can.
[[nodiscard]] QString whyNoBus();

} // namespace quorvane
