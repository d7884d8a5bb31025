#include "App/Command/SettingsTable.h"

#include "Manager/SettingsKeys.h"
#include "Manager/WallpaperManager.h"
#include "Platform/Files/UserDefaults.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::SettingsTable {

namespace {

using namespace SettingsKeys;

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(SettingsTable)
};

std::optional<bool> booleanFrom(const QString &text)
{
    static const QStringList yes{u"true"_s, u"on"_s, u"yes"_s, u"1"_s};
    static const QStringList no{u"false"_s, u"off"_s, u"no"_s, u"0"_s};
    const QString word = text.toLower();
    if (yes.contains(word)) {
        return true;
    }
    return no.contains(word) ? std::optional(false) : std::nullopt;
}

/// The texts that the key takes; empty where any text will do.
QStringList choices(const WallpaperManager &manager, const QString &key)
{
    if (key == kUpscaleMethod) {
        return {u"gemini"_s, u"local"_s};
    }
    QStringList found = key == kProviderOverride ? QStringList{u"auto"_s} : QStringList();
    for (const auto &provider : manager.providers()) {
        if (key == kProviderOverride) {
            found.append(provider->id());
        } else if (key == selectedModel(provider->id())) {
            for (const ModelOption &model : provider->models()) {
                found.append(model.id);
            }
        }
    }
    return found;
}

/// The provider whose model the key names; empty for any other key.
QString providerOfModelKey(const WallpaperManager &manager, const QString &key)
{
    for (const auto &provider : manager.providers()) {
        if (key == selectedModel(provider->id())) {
            return provider->id();
        }
    }
    return {};
}

QString unknownKey(const QString &key)
{
    return Tr::tr("unknown setting %1").arg(key);
}

} // namespace

QStringList keys(const WallpaperManager &manager)
{
    QStringList all{kLastPrompt,  kFourKEnabled,    kNsfwEnabled,   kProviderOverride,
                    kAutoEnabled, kIntervalMinutes, kUpscaleMethod, kCurrentWallpaperPath};
    for (const auto &provider : manager.providers()) {
        all.append(selectedModel(provider->id()));
    }
    return all;
}

QJsonValue value(const WallpaperManager &manager, const UserDefaults &defaults, const QString &key)
{
    if (key == kLastPrompt) {
        return manager.prompt();
    }
    if (key == kFourKEnabled) {
        return manager.fourKEnabled();
    }
    if (key == kNsfwEnabled) {
        return manager.nsfwEnabled();
    }
    if (key == kProviderOverride) {
        return manager.providerOverride();
    }
    if (key == kAutoEnabled) {
        return manager.autoEnabled();
    }
    if (key == kIntervalMinutes) {
        return manager.intervalMinutes();
    }
    if (key == kUpscaleMethod) {
        return defaults.text(key).value_or(u"gemini"_s);
    }
    if (key == kCurrentWallpaperPath) {
        const std::optional<QString> path = defaults.text(key);
        return path ? QJsonValue(*path) : QJsonValue();
    }
    for (const auto &provider : manager.providers()) {
        if (key == selectedModel(provider->id())) {
            return defaults.text(key).value_or(provider->models().first().id);
        }
    }
    return {};
}

std::optional<QString> set(WallpaperManager &manager, UserDefaults &defaults, const QString &key, const QString &text)
{
    if (!keys(manager).contains(key)) {
        return unknownKey(key);
    }
    if (key == kFourKEnabled || key == kNsfwEnabled || key == kAutoEnabled) {
        const std::optional<bool> enabled = booleanFrom(text);
        if (!enabled) {
            return Tr::tr("%1 takes true or false").arg(key);
        }
        if (key == kFourKEnabled) {
            manager.setFourKEnabled(*enabled);
        } else if (key == kNsfwEnabled) {
            manager.setNsfwEnabled(*enabled);
        } else {
            manager.setAutoEnabled(*enabled);
        }
        return std::nullopt;
    }
    if (key == kIntervalMinutes) {
        bool isNumber = false;
        const qint64 minutes = text.toLongLong(&isNumber);
        if (!isNumber || minutes < 1 || minutes > WallpaperManager::kLongestIntervalMinutes) {
            return Tr::tr("%1 takes a whole number of minutes from 1 to %2")
                .arg(key)
                .arg(WallpaperManager::kLongestIntervalMinutes);
        }
        manager.setIntervalMinutes(minutes);
        return std::nullopt;
    }
    const QStringList offered = choices(manager, key);
    if (!offered.isEmpty() && !offered.contains(text)) {
        return Tr::tr("%1 takes one of: %2").arg(key, offered.join(u", "_s));
    }
    if (key == kLastPrompt) {
        manager.setPrompt(text);
    } else if (key == kProviderOverride) {
        manager.setProviderOverride(text);
    } else if (key == kUpscaleMethod) {
        manager.setUpscaleMethod(text);
    } else if (const QString provider = providerOfModelKey(manager, key); !provider.isEmpty()) {
        manager.setSelectedModel(provider, text);
    } else {
        if (!QDir::isAbsolutePath(text)) {
            return Tr::tr("%1 takes the whole path of a picture").arg(key);
        }
        defaults.set(key, text);
        manager.restoreCurrentWallpaper();
    }
    return std::nullopt;
}

std::optional<QString> unset(WallpaperManager &manager, UserDefaults &defaults, const QString &key)
{
    if (!keys(manager).contains(key)) {
        return unknownKey(key);
    }
    // What is in force changes first, so that everything that hangs on it follows; then the stored value goes.
    std::optional<QString> problem;
    if (key == kFourKEnabled || key == kNsfwEnabled || key == kAutoEnabled) {
        problem = set(manager, defaults, key, u"false"_s);
    } else if (key == kIntervalMinutes) {
        problem = set(manager, defaults, key, QString::number(WallpaperManager::kDefaultIntervalMinutes));
    } else if (key == kLastPrompt) {
        manager.setPrompt(QString());
    } else if (key == kProviderOverride) {
        manager.setProviderOverride(u"auto"_s);
    } else if (key == kUpscaleMethod || !providerOfModelKey(manager, key).isEmpty()) {
        // The first that is offered is what holds without a choice.
        problem = set(manager, defaults, key, choices(manager, key).first());
    }
    defaults.remove(key);
    if (key == kCurrentWallpaperPath) {
        manager.restoreCurrentWallpaper();
    }
    return problem;
}

} // namespace quorvane::SettingsTable
