#pragma once

#include "Support/PrivateHome.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <memory>
#include <optional>

namespace quorvane {

using namespace Qt::StringLiterals;

/// A login session of the test's own: home, run-time folder and message bus, and no desktop. Everything that it starts
/// ends with it.
class KeyringSession
{
  public:
    KeyringSession();
    ~KeyringSession();
    KeyringSession(const KeyringSession &) = delete;
    KeyringSession &operator=(const KeyringSession &) = delete;

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

    /// The helper with arguments; it must end well.
    [[nodiscard]] bool runHelper(const QStringList &arguments);
    /// Whether a launch waits for the answers of a busy machine, or is the program's own.
    enum class Patience { Ours, Long };
    /// Moves the keys in a process of its own; the milliseconds it took, or nothing when it did not end well.
    [[nodiscard]] std::optional<int> migrate(Patience patience = Patience::Long);
    /// With the program's own patience, three times where nothing changes, and the shortest: a busy machine may hold up
    /// one launch or two.
    [[nodiscard]] std::optional<int> quickestMigration();
    /// As migrate(), in two steps; the process lives on in between.
    [[nodiscard]] std::optional<int> beginMigration(Patience patience = Patience::Long);
    [[nodiscard]] bool endMigration();

    /// The key file, or a null array.
    [[nodiscard]] QByteArray keyFile() const;

    /// A connection of the test itself to the bus.
    [[nodiscard]] QDBusConnection connection() const;

  private:
    /// Runs the program to its end; its exit status, and what it printed.
    [[nodiscard]] std::pair<int, QByteArray> run(const QString &program, const QStringList &arguments,
                                                 const QByteArray &input = {});

    PrivateHome m_home;
    QProcessEnvironment m_environment; ///< After m_home, which sets the variables that it copies.
    QString m_address;
    QString m_connectionName;
    QProcess m_bus;
    QProcess m_keyring;
    std::unique_ptr<QProcess> m_migration;
};

/// The reason why tests with a real keyring cannot run here; empty when they can.
[[nodiscard]] QString whyNoKeyring();
/// The reason why tests with a private bus cannot run here; empty when they can.
[[nodiscard]] QString whyNoBus();

} // namespace quorvane
