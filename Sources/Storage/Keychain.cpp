#include "Storage/Keychain.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/FolderLock.h"
#include "Platform/Files/Paths.h"
#include "Storage/LegacyKeys.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

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
    const QString parent = Paths::home() + u"/Library/Application Support"_s;
    const QString name = u"Quorvane"_s;
    QString path = parent + '/'_L1 + name;
    if (!QDir(path).exists() && QDir().mkpath(parent)) {
        (void)QDir(parent).mkdir(name, kOwnerOnly | QFile::ExeOwner);
    }
    return path;
}

QString Keychain::filePath()
{
    return folder() + u"/keys.json"_s;
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
