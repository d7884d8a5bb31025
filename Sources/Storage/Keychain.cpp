#include "Storage/Keychain.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/FolderLock.h"
#include "Platform/Files/Paths.h"
#include "Storage/LegacyKeys.h"

#include <QDir>
#include <QFile>

namespace quorvane {

namespace {

constexpr QFile::Permissions kOwnerOnly = QFile::ReadOwner | QFile::WriteOwner;

} // namespace

TextMap Keychain::readAll()
{
    return readTextMap(filePath());
}

std::optional<QString> Keychain::load(const QString &providerId)
{
    const TextMap keys = readAll();
    const auto entry = keys.find(providerId);
    return entry == keys.end() ? std::nullopt : std::optional(entry->second);
}

void Keychain::save(const QString &key, const QString &providerId)
{
    const FolderLock lock(folder());
    TextMap keys = readAll();
    keys.insert_or_assign(providerId, key);
    writeAll(keys);
}

bool Keychain::saveIfAbsent(const QString &key, const QString &providerId)
{
    const FolderLock lock(folder());
    TextMap keys = readAll();
    if (keys.emplace(providerId, key).second) {
        writeAll(keys);
    }
    return load(providerId).has_value();
}

void Keychain::remove(const QString &providerId)
{
    const FolderLock lock(folder());
    TextMap keys = readAll();
    keys.erase(providerId);
    writeAll(keys);
}

void Keychain::migrateLegacyKey(SecretStore &store)
{
    moveLegacyKeys(store);
}

void Keychain::removeAbandonedTemporaries()
{
    quorvane::removeAbandonedTemporaries(folder());
}

QString Keychain::folder()
{
    const QString parent = Paths::home() + QStringLiteral("/Library/Application Support");
    const QString name = QStringLiteral("Quorvane");
    QString path = parent + QLatin1Char('/') + name;
    if (!QDir(path).exists() && QDir().mkpath(parent)) {
        (void)QDir(parent).mkdir(name, kOwnerOnly | QFile::ExeOwner);
    }
    return path;
}

QString Keychain::filePath()
{
    return folder() + QStringLiteral("/keys.json");
}

void Keychain::writeAll(const TextMap &keys)
{
    if (const auto bytes = bytesFromTextMap(keys)) {
        (void)writeFileAtomically(filePath(), *bytes, FileAccess::OwnerOnly);
        // The new file is private already; this mends one that was opened up and could not be replaced.
        (void)QFile::setPermissions(filePath(), kOwnerOnly);
    }
}

} // namespace quorvane
