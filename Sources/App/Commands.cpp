#include "App/Commands.h"

#include "App/Console.h"
#include "App/Reports.h"
#include "App/SettingsTable.h"
#include "Manager/WallpaperManager.h"
#include "Platform/Autostart.h"
#include "Platform/DesktopPicture.h"
#include "Platform/HttpClient.h"
#include "Platform/SecretStore.h"
#include "Platform/UserDefaults.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Upscaling/LocalUpscaler.h"
#include "Upscaling/ModelFiles.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <functional>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Commands)
};

/// Everything an operation needs, made for one command.
struct Workshop
{
    UserDefaults defaults;
    HttpClient http;
    std::unique_ptr<DesktopPicture> desktop = makeDesktopPicture();
    std::unique_ptr<SecretStore> legacyKeys = makeSecretStore();
    WallpaperManager manager{ManagerServices{&defaults, &http, desktop.get(), legacyKeys.get(), localUpscaleImage}};
};

int fail(const QString &problem, int status = kFailed)
{
    Console::printError(QStringLiteral("quorvane: ") + problem);
    return status;
}

QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

/// Starts an operation, shows its status on standard error while it runs, and prints how it ended.
int runOperation(Workshop &workshop, const CommandLine &line, const std::function<void(WallpaperManager &)> &start)
{
    WallpaperManager &manager = workshop.manager;
    OperationResult result;
    QObject::connect(&manager, &WallpaperManager::operationEnded, &manager,
                     [&result](const OperationResult &ended) { result = ended; });
    QObject::connect(&manager, &WallpaperManager::statusChanged, &manager, [&manager] {
        if (!manager.status().isEmpty()) {
            Console::printError(manager.status());
        }
    });
    QObject::connect(&manager, &WallpaperManager::progressChanged, &manager, [&manager] {
        if (manager.progress()) {
            Console::printProgress(Reports::progressLine(*manager.progress()));
        }
    });
    start(manager);
    manager.waitUntilIdle();
    if (line.json) {
        Console::printJson(QJsonObject{{QStringLiteral("status"), manager.status()},
                                       {QStringLiteral("isError"), manager.isError()},
                                       {QStringLiteral("file"), textOrNull(result.file)},
                                       {QStringLiteral("original"), textOrNull(result.original)}});
    } else {
        Console::print(manager.status());
    }
    return manager.isError() ? kFailed : kDone;
}

/// The file that the user means: a path, or the name of a picture in the library. Empty when there is none.
QString fileFrom(const QString &argument)
{
    if (!argument.contains(QLatin1Char('/'))) {
        const QString inLibrary = ImageStore::directory() + QLatin1Char('/') + argument;
        if (QFileInfo::exists(inLibrary)) {
            return inLibrary;
        }
    }
    const QFileInfo file(argument);
    return file.exists() ? file.absoluteFilePath() : QString();
}

/// As fileFrom(), for pictures of the library only, so that nothing else is ever deleted or marked.
QString libraryFileFrom(const QString &argument)
{
    const QString path = fileFrom(argument);
    const QString inLibrary = ImageStore::directory() + QLatin1Char('/') + imageName(path);
    const bool isSame = QFileInfo(path).canonicalFilePath() == QFileInfo(inLibrary).canonicalFilePath();
    return isSame && ImageStore::allImages().contains(inLibrary) ? inLibrary : QString();
}

int runOnFile(Workshop &workshop, const CommandLine &line)
{
    const QString &argument = line.arguments.first();
    const bool mayBeElsewhere = line.verb == CommandLine::Verb::Set || line.verb == CommandLine::Verb::Upscale;
    const QString file = mayBeElsewhere ? fileFrom(argument) : libraryFileFrom(argument);
    if (file.isEmpty()) {
        return fail((mayBeElsewhere ? Tr::tr("no such file: %1") : Tr::tr("not in the library: %1")).arg(argument));
    }
    WallpaperManager &manager = workshop.manager;
    if (line.verb == CommandLine::Verb::Set) {
        return runOperation(workshop, line, [&file](WallpaperManager &each) { each.setWallpaper(file); });
    }
    if (line.verb == CommandLine::Verb::Upscale) {
        return runOperation(workshop, line, [&file](WallpaperManager &each) { each.upscaleExistingImage(file); });
    }
    if (line.verb == CommandLine::Verb::Delete) {
        manager.deleteImage(file);
    } else {
        manager.toggleFavorite(file);
    }
    manager.waitUntilIdle();
    if (line.verb == CommandLine::Verb::Delete && QFileInfo::exists(file)) {
        return fail(Tr::tr("could not delete %1").arg(argument));
    }
    if (line.json) {
        Console::printJson(Reports::changedFile(manager, file));
    }
    return kDone;
}

int runSettings(Workshop &workshop, const CommandLine &line)
{
    WallpaperManager &manager = workshop.manager;
    UserDefaults &defaults = workshop.defaults;
    const QString key = line.arguments.value(0);
    if (line.unset || line.arguments.size() == 2) {
        const auto problem = line.unset ? SettingsTable::unset(manager, defaults, key)
                                        : SettingsTable::set(manager, defaults, key, line.arguments.at(1));
        if (problem) {
            return fail(*problem, kWrongCommandLine);
        }
        if (!defaults.sync()) {
            return fail(Tr::tr("could not write %1").arg(UserDefaults::defaultPath()));
        }
    }
    const QStringList known = SettingsTable::keys(manager);
    if (!key.isEmpty() && !known.contains(key)) {
        return fail(Tr::tr("unknown setting %1").arg(key), kWrongCommandLine);
    }
    QJsonObject values;
    for (const QString &each : key.isEmpty() ? known : QStringList{key}) {
        const QJsonValue value = SettingsTable::value(manager, defaults, each);
        values.insert(each, value);
        if (!line.json && key.isEmpty()) {
            Console::print(each + QStringLiteral(" = ") + value.toVariant().toString());
        } else if (!line.json && line.arguments.size() == 1 && !line.unset) {
            Console::print(value.toVariant().toString());
        }
    }
    if (line.json) {
        Console::printJson(values);
    }
    return kDone;
}

int runKey(const CommandLine &line)
{
    const QString &action = line.arguments.first();
    if (action == QLatin1String("set")) {
        const QString &id = line.arguments.at(1);
        const std::optional<QString> key = Console::readSecret(Tr::tr("API key for %1: ").arg(id));
        if (!key || key->isEmpty()) {
            return fail(key ? Tr::tr("no key on standard input") : Tr::tr("standard input holds no key"));
        }
        Keychain::save(*key, id);
        if (Keychain::load(id) != key) {
            return fail(Tr::tr("could not write the key file"));
        }
    } else if (action == QLatin1String("delete")) {
        Keychain::remove(line.arguments.at(1));
        if (Keychain::load(line.arguments.at(1))) {
            return fail(Tr::tr("could not write the key file"));
        }
    }
    QStringList ids;
    for (const auto &[id, key] : Keychain::readAll()) {
        ids.append(id);
    }
    if (line.json) {
        Console::printJson(QJsonArray::fromStringList(ids));
    } else if (action == QLatin1String("list")) {
        for (const QString &id : ids) {
            Console::print(id);
        }
    }
    return kDone;
}

int runModel(const CommandLine &line)
{
    try {
        if (line.arguments.size() == 2) {
            installModel(line.arguments.at(1));
        }
        const std::optional<QString> file = findModel();
        if (line.json) {
            Console::printJson(QJsonObject{
                {QStringLiteral("file"), textOrNull(file.value_or(QString()))},
                {QStringLiteral("description"), file ? QJsonValue(describeModel(*file)) : QJsonValue()},
            });
            return kDone;
        }
        if (!file) {
            return fail(missingModel().errorDescription());
        }
        Console::print(*file);
        Console::print(describeModel(*file));
    } catch (const std::exception &error) {
        return fail(QString::fromUtf8(error.what()));
    }
    return kDone;
}

int runAutostart(const CommandLine &line)
{
    const bool enabled = line.arguments.first() == QLatin1String("on");
    if (!setAutostart(enabled ? Autostart::On : Autostart::Off)) {
        return fail(Tr::tr("could not write the autostart entry"));
    }
    if (line.json) {
        Console::printJson(QJsonObject{{QStringLiteral("autostart"), enabled}});
    }
    return kDone;
}

int runWithWorkshop(const CommandLine &line)
{
    Workshop workshop;
    WallpaperManager &manager = workshop.manager;
    switch (line.verb) {
    case CommandLine::Verb::Generate:
        if (line.prompt) {
            manager.setPrompt(*line.prompt);
            workshop.defaults.sync();
        }
        return runOperation(workshop, line, [](WallpaperManager &each) { each.generateAndSet(); });
    case CommandLine::Verb::Status: {
        const QJsonObject status = Reports::status(manager, *workshop.desktop);
        line.json ? Console::printJson(status) : Console::print(Reports::statusText(status));
        return kDone;
    }
    case CommandLine::Verb::History: {
        const QJsonArray history = Reports::history(manager);
        line.json ? Console::printJson(history) : Console::print(Reports::historyText(history));
        return kDone;
    }
    case CommandLine::Verb::Albums: {
        const QJsonArray albums = Reports::albums(manager);
        line.json ? Console::printJson(albums) : Console::print(Reports::albumsText(albums));
        return kDone;
    }
    case CommandLine::Verb::Settings:
        return runSettings(workshop, line);
    case CommandLine::Verb::Auto: {
        manager.setAutoEnabled(line.arguments.first() == QLatin1String("on"));
        if (line.json) {
            Console::printJson(QJsonObject{{QStringLiteral("autoEnabled"), manager.autoEnabled()}});
        }
        return workshop.defaults.sync() ? kDone : fail(Tr::tr("could not write %1").arg(UserDefaults::defaultPath()));
    }
    default:
        return runOnFile(workshop, line);
    }
}

} // namespace

int runCommand(const CommandLine &line)
{
    switch (line.verb) {
    case CommandLine::Verb::Help:
        Console::print(helpText().trimmed());
        return kDone;
    case CommandLine::Verb::Version:
        Console::print(QStringLiteral("quorvane ") + QCoreApplication::applicationVersion());
        return kDone;
    case CommandLine::Verb::Start:
        return fail(Tr::tr("this version has no window yet; see quorvane --help"));
    case CommandLine::Verb::Quit:
        return fail(Tr::tr("the application is not running"));
    case CommandLine::Verb::Key:
        return runKey(line);
    case CommandLine::Verb::Autostart:
        return runAutostart(line);
    case CommandLine::Verb::Model:
        return runModel(line);
    default:
        return runWithWorkshop(line);
    }
}

} // namespace quorvane
