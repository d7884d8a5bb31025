#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

namespace quorvane {

/// The seam to the desktop's password storage, used only to move keys out of it once. Calls block, but never longer
/// than the limit that the implementation is made with, and never ask the user anything.
class SecretStore
{
  public:
    SecretStore() = default;
    SecretStore(const SecretStore &) = delete;
    SecretStore &operator=(const SecretStore &) = delete;
    SecretStore(SecretStore &&) = delete;
    SecretStore &operator=(SecretStore &&) = delete;
    virtual ~SecretStore() = default;

    /// The bytes stored for account under service; nothing when there is no such item, no storage, or it is locked.
    [[nodiscard]] virtual std::optional<QByteArray> read(const QString &service, const QString &account) = 0;

    /// Deletes the item; a failure is ignored.
    virtual void remove(const QString &service, const QString &account) = 0;
};

/// What a start of the program may lose to a password storage that does not answer, or has nothing for us.
inline constexpr std::chrono::milliseconds kSecretStorePatience{150};

/// The Secret Service (or KWallet) of this session through QtKeychain. All its calls together wait no longer than
/// patience to learn whether there is anything to read, and then, where there is, no longer than two seconds for it.
/// Belongs to the main thread; needs an application object, but neither a display nor a bus.
[[nodiscard]] std::unique_ptr<SecretStore> makeSecretStore(std::chrono::milliseconds patience = kSecretStorePatience);

} // namespace quorvane
