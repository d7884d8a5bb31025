#pragma once

#include "Platform/Failure.h"
#include "Storage/SideFile.h"

#include <QString>

#include <functional>
#include <optional>

namespace quorvane {

class SecretStore;

/// The user's API keys by provider id, in "Library/Application Support/Quorvane/keys.json" of the home, which only the
/// user can read at any moment. A key is any text, kept exactly as given.
///
/// Nothing is cached: every call reads the file. What cannot be read is empty; what cannot be written stays as it was,
/// and the Failure says so in words for people. Any thread and any number of processes may call at once without losing
/// each other's keys.
class Keychain
{
  public:
    Keychain() = delete;

    [[nodiscard]] static TextMap readAll(); ///< All keys, by provider id.

    /// The key of that provider. An empty text is a stored key too.
    [[nodiscard]] static std::optional<QString> load(const QString &providerId);

    static Result<> save(const QString &key, const QString &providerId); ///< Replaces the key of that provider.

    /// Stores the key unless the provider has one already. True when the file holds a key of the provider afterwards.
    [[nodiscard]] static Result<> saveIfAbsent(const QString &key, const QString &providerId);

    /// Removes the key of that provider. The file is written even when there was none.
    static Result<> remove(const QString &providerId);

    /// Moves keys that lie in store into the file. Once per launch; blocks as long as store does.
    static void migrateLegacyKey(SecretStore &store);

    /// Removes what a killed process left half-written; see AtomicFile.h. Once per launch is enough.
    static void removeAbandonedTemporaries();

  private:
    [[nodiscard]] static QString folder();
    [[nodiscard]] static QString filePath();
    static Result<> change(const std::function<Change(TextMap &)> &change);
};

} // namespace quorvane
