#pragma once

#include "Storage/SideFile.h"

#include <QString>

#include <optional>

namespace quorvane {

class SecretStore;

/// The user's API keys by provider id, in "Library/Application Support/Quorvane/keys.json" of the home, which only the
/// user can read at any moment. A key is any text, kept exactly as given.
///
/// Nothing is cached: every call reads the file, and no call reports an error: what cannot be read is empty, what
/// cannot be written stays as it was. Any thread and any number of processes may call at once without losing each
/// other's keys.
class Keychain
{
  public:
    Keychain() = delete;

    [[nodiscard]] static TextMap readAll();

    /// The key of that provider. An empty text is a stored key too.
    [[nodiscard]] static std::optional<QString> load(const QString &providerId);

    static void save(const QString &key, const QString &providerId);

    /// Stores the key unless the provider has one already. True when the file holds a key of the provider afterwards.
    [[nodiscard]] static bool saveIfAbsent(const QString &key, const QString &providerId);

    /// Removes the key of that provider. The file is written even when there was none.
    static void remove(const QString &providerId);

    /// Moves keys that lie in store into the file. Once per launch; blocks as long as store does.
    static void migrateLegacyKey(SecretStore &store);

    /// Removes what a killed process left half-written; see AtomicFile.h. Once per launch is enough.
    static void removeAbandonedTemporaries();

  private:
    [[nodiscard]] static QString folder();
    [[nodiscard]] static QString filePath();
    static void writeAll(const TextMap &keys);
};

} // namespace quorvane
