#pragma once

#include "Platform/Bus/MessageBus.h"

#include <QString>
#include <QVariantList>

#include <chrono>
#include <optional>

namespace quorvane {

/// Asks the desktop's password storage over D-Bus whether a read of one of QtKeychain's items would succeed at once.
/// Reading without asking first would start a storage that nobody uses, open an unlock dialog at every launch, or wait
/// without end where a locked keyring has nobody to show one. None of the questions asked here does.
///
/// Belongs to one thread; blocks it, but in all its life never longer than the limit given at the beginning.
class SecretProbe
{
  public:
    explicit SecretProbe(std::chrono::milliseconds limit);

    /// Whether there is such an item and it is readable without asking the user. False when in doubt.
    [[nodiscard]] bool isReadable(const QString &service, const QString &account);

  private:
    enum class Storage { Unknown, None, SecretService, Wallet };

    [[nodiscard]] Storage findStorage();
    [[nodiscard]] bool isInSecretService(const QString &service, const QString &account);
    [[nodiscard]] bool isInWallet(const QString &service, const QString &account);
    /// The first argument of the reply; invalid after an error or when the time is up. May start the storage.
    [[nodiscard]] QVariant ask(const QString &peer, const QString &path, const QString &interface,
                               const QString &method, const QVariantList &arguments = {});

    std::chrono::milliseconds m_left;
    std::optional<MessageBus> m_bus; ///< From the first question on.
    Storage m_storage = Storage::Unknown;
    QString m_wallet; ///< Bus name of the wallet daemon in use.
};

} // namespace quorvane
