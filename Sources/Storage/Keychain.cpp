#include "Storage/Keychain.h"

#include "Platform/Files/AtomicFile.h"
#include "Platform/Files/FolderLock.h"
#include "Platform/Files/Paths.h"
#include "Storage/LegacyKeys.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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

Result<> Keychain::save(const QString &key, const QString &providerId)
{
    return change([&](TextMap &keys) {
        keys.insert_or_assign(providerId, key);
        return Change::Write;
    });
}

Result<> Keychain::saveIfAbsent(const QString &key, const QString &providerId)
{
    return change(
        [&](TextMap &keys) { return keys.emplace(providerId, key).second ? Change::Write : Change::LeaveAlone; });
}

Result<> Keychain::remove(const QString &providerId)
{
    return change([&](TextMap &keys) {
        keys.erase(providerId);
        return Change::Write;
    });
}

void Keychain::migrateLegacyKey(SecretStore &store)
{
    moveLegacyKeys(store);
}

void Keychain::removeAbandonedTemporaries()
{
    removeAbandonedTemporariesOf(filePath());
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

Result<> Keychain::change(const std::function<Change(TextMap &)> &change)
{
    const FolderLock lock(folder());
    Result<> changed = changeTextMap(filePath(), FileAccess::OwnerOnly, change);
    // A new file is private already; this mends one that was opened up and could not be replaced.
    if (const QString path = filePath(); QFileInfo(path).isFile()) {
        (void)QFile::setPermissions(path, kOwnerOnly);
    }
    return changed;
}

} // namespace quorvane
