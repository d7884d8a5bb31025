#include "App/Command/SettingsTable.h"

#include "Manager/SettingsKeys.h"
#include "Manager/WallpaperManager.h"
#include "Platform/Files/UserDefaults.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using namespace SettingsKeys;
using Kind = Setting::Kind;

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(SettingsTable)
};

const QString kTrue = u"true"_s;
const QString kFalse = u"false"_s;

/// text as Setting::change takes it.
Result<QString> accepted(const Setting &setting, const QString &text)
{
    switch (setting.kind) {
    case Kind::Switch: {
        const QString word = text.toLower();
        if (QStringList{kTrue, u"on"_s, u"yes"_s, u"1"_s}.contains(word)) {
            return kTrue;
        }
        if (QStringList{kFalse, u"off"_s, u"no"_s, u"0"_s}.contains(word)) {
            return kFalse;
        }
        return Failure{Tr::tr("%1 takes true or false").arg(setting.key)};
    }
    case Kind::Minutes: {
        bool isNumber = false;
        const qint64 minutes = text.toLongLong(&isNumber);
        if (!isNumber || minutes < 1 || minutes > Schedule::kLongestIntervalMinutes) {
            return Failure{Tr::tr("%1 takes a whole number of minutes from 1 to %2")
                               .arg(setting.key)
                               .arg(Schedule::kLongestIntervalMinutes)};
        }
        return QString::number(minutes);
    }
    case Kind::Choice:
        if (!setting.choices.contains(text)) {
            return Failure{Tr::tr("%1 takes one of: %2").arg(setting.key, setting.choices.join(u", "_s))};
        }
        return text;
    case Kind::Picture:
        if (!QDir::isAbsolutePath(text)) {
            return Failure{Tr::tr("%1 takes the whole path of a picture").arg(setting.key)};
        }
        return text;
    case Kind::Text:
        break;
    }
    return text;
}

Setting selectedModelOf(const ImageProvider &provider, WallpaperManager &manager, UserDefaults &defaults)
{
    QStringList models;
    for (const ModelOption &model : provider.models()) {
        models.append(model.id);
    }
    const QString key = selectedModel(provider.id());
    return {key,
            Kind::Choice,
            models.value(0),
            models,
            [&defaults, key, first = models.value(0)] { return defaults.text(key).value_or(first); },
            [&manager, id = provider.id()](const QString &model) { manager.setSelectedModel(id, model); }};
}

std::vector<Setting> table(WallpaperManager &manager, UserDefaults &defaults)
{
    QStringList providers{kAutomatic};
    for (const auto &provider : manager.providers()) {
        providers.append(provider->id());
    }
    const QStringList methods{idOf(UpscaleMethod::Gemini), idOf(UpscaleMethod::Local)};
    const auto wallpaper = [&defaults]() -> QJsonValue {
        const std::optional<QString> path = defaults.text(kCurrentWallpaperPath);
        return path ? QJsonValue(*path) : QJsonValue();
    };
    const auto setWallpaper = [&manager, &defaults](const QString &path) {
        if (path.isEmpty()) {
            defaults.remove(kCurrentWallpaperPath);
        } else {
            defaults.set(kCurrentWallpaperPath, path);
        }
        manager.restoreCurrentWallpaper();
    };
    std::vector<Setting> all{
        {kLastPrompt,
         Kind::Text,
         {},
         {},
         [&manager] { return manager.prompt(); },
         [&manager](const QString &text) { manager.setPrompt(text); }},
        {kFourKEnabled,
         Kind::Switch,
         kFalse,
         {},
         [&manager] { return manager.fourKEnabled(); },
         [&manager](const QString &text) { manager.setFourKEnabled(text == kTrue); }},
        {kNsfwEnabled,
         Kind::Switch,
         kFalse,
         {},
         [&manager] { return manager.nsfwEnabled(); },
         [&manager](const QString &text) { manager.setNsfwEnabled(text == kTrue); }},
        {kProviderOverride, Kind::Choice, providers.first(), providers,
         [&manager] { return manager.providerOverride(); },
         [&manager](const QString &text) { manager.setProviderOverride(text); }},
        {kAutoEnabled,
         Kind::Switch,
         kFalse,
         {},
         [&manager] { return manager.autoEnabled(); },
         [&manager](const QString &text) { manager.setAutoEnabled(text == kTrue); }},
        {kIntervalMinutes,
         Kind::Minutes,
         QString::number(Schedule::kDefaultIntervalMinutes),
         {},
         [&manager] { return manager.intervalMinutes(); },
         [&manager](const QString &text) { manager.setIntervalMinutes(text.toLongLong()); }},
        {kUpscaleMethod, Kind::Choice, methods.first(), methods,
         [&defaults, first = methods.first()] { return defaults.text(kUpscaleMethod).value_or(first); },
         [&manager](const QString &text) { manager.setUpscaleMethod(upscaleMethodOf(text)); }},
        {kCurrentWallpaperPath, Kind::Picture, {}, {}, wallpaper, setWallpaper},
    };
    for (const auto &provider : manager.providers()) {
        all.push_back(selectedModelOf(*provider, manager, defaults));
    }
    return all;
}

} // namespace

SettingsTable::SettingsTable(WallpaperManager &manager, UserDefaults &defaults)
    : m_defaults(defaults)
    , m_settings(table(manager, defaults))
{
}

Result<Setting> SettingsTable::find(const QString &key) const
{
    const auto found = std::find_if(m_settings.begin(), m_settings.end(),
                                    [&key](const Setting &setting) { return setting.key == key; });
    return found == m_settings.end() ? Result<Setting>(Failure{Tr::tr("unknown setting %1").arg(key)})
                                     : Result<Setting>(*found);
}

Result<> SettingsTable::set(const QString &key, const QString &text)
{
    const Result<Setting> setting = find(key);
    if (!setting) {
        return setting.failure();
    }
    const Result<QString> taken = accepted(*setting, text);
    if (!taken) {
        return taken.failure();
    }
    setting->change(*taken);
    return {};
}

Result<> SettingsTable::unset(const QString &key)
{
    const Result<Setting> setting = find(key);
    if (!setting) {
        return setting.failure();
    }
    // What is in force changes first, so that everything that hangs on it follows; then the stored value goes.
    setting->change(setting->initial);
    m_defaults.remove(key);
    return {};
}

} // namespace quorvane
