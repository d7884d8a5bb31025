#include "App/Command/CommandRunner.h"

#include "App/Command/Reports.h"
#include "App/Command/Services.h"
#include "App/Command/SettingsTable.h"
#include "Platform/System/Autostart.h"
#include "Platform/Threads/Worker.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Upscaling/ModelInstall.h"
#include "Upscaling/Network/ModelFiles.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <memory>

using namespace Qt::StringLiterals;

namespace quorvane::CommandRunner {

namespace {

using Verb = CommandLine::Verb;

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Commands)
};

CommandOutcome failure(const QString &problem, int status = kFailed)
{
    return {status, {}, problem};
}

bool mayBeElsewhere(const CommandLine &line)
{
    return line.verb == Verb::Set || line.verb == Verb::Upscale;
}

/// The status line, and what the operation left.
CommandOutcome operationOutcome(const WallpaperManager &manager, const OperationResult &result)
{
    const QJsonObject value{{u"status"_s, manager.status()},
                            {u"isError"_s, manager.isError()},
                            {u"file"_s, Reports::textOrNull(result.file)},
                            {u"original"_s, Reports::textOrNull(result.original)}};
    return {manager.isError() ? kFailed : kSucceeded, value, {}};
}

CommandOutcome changedFileOutcome(const WallpaperManager &manager, const CommandLine &line, const QString &file)
{
    if (line.verb == Verb::Delete && QFileInfo::exists(file)) {
        return failure(Tr::tr("could not delete %1").arg(line.arguments.first()));
    }
    return {kSucceeded, Reports::changedFile(manager, file), {}};
}

/// Calls begin, and ended when the operation that begin starts is over.
void runOperation(WallpaperManager &manager, const std::function<void()> &begin,
                  const std::function<void(const OperationResult &)> &ended)
{
    auto connection = std::make_shared<QMetaObject::Connection>();
    const auto whenEnded = [operation = manager.nextOperation(), connection, ended](const OperationResult &result) {
        if (result.operation == operation) {
            QObject::disconnect(*connection);
            ended(result);
        }
    };
    *connection = QObject::connect(&manager, &WallpaperManager::operationEnded, &manager, whenEnded);
    begin();
}

void startOnFile(WallpaperManager &manager, const CommandLine &line, const Ended &ended)
{
    const QString file = fileOf(line);
    if (file.isEmpty()) {
        ended(failure(noSuchFile(line)));
        return;
    }
    const auto begin = [&manager, &line, &file] {
        if (line.verb == Verb::Set) {
            manager.setWallpaper(file);
        } else if (line.verb == Verb::Upscale) {
            manager.upscaleExistingImage(file);
        } else if (line.verb == Verb::Delete) {
            manager.deleteImage(file);
        } else {
            manager.toggleFavorite(file);
        }
    };
    runOperation(manager, begin, [&manager, line, file, ended](const OperationResult &result) {
        ended(mayBeElsewhere(line) ? operationOutcome(manager, result) : changedFileOutcome(manager, line, file));
    });
}

CommandOutcome changeSettings(Services &services, const CommandLine &line)
{
    WallpaperManager &manager = services.manager;
    UserDefaults &defaults = services.defaults;
    const QString key = line.arguments.value(0);
    if (line.unset || line.arguments.size() == 2) {
        const auto problem = line.unset ? SettingsTable::unset(manager, defaults, key)
                                        : SettingsTable::set(manager, defaults, key, line.arguments.at(1));
        if (problem) {
            return failure(*problem, kWrongCommandLine);
        }
        if (!defaults.sync()) {
            return failure(Tr::tr("could not write %1").arg(UserDefaults::defaultPath()));
        }
    }
    const QStringList known = SettingsTable::keys(manager);
    if (!key.isEmpty() && !known.contains(key)) {
        return failure(Tr::tr("unknown setting %1").arg(key), kWrongCommandLine);
    }
    QJsonObject values;
    for (const QString &each : key.isEmpty() ? known : QStringList{key}) {
        values.insert(each, SettingsTable::value(manager, defaults, each));
    }
    return {kSucceeded, values, {}};
}

CommandOutcome switchAuto(Services &services, const CommandLine &line)
{
    services.manager.setAutoEnabled(line.arguments.first() == "on"_L1);
    if (!services.defaults.sync()) {
        return failure(Tr::tr("could not write %1").arg(UserDefaults::defaultPath()));
    }
    return {kSucceeded, QJsonObject{{u"autoEnabled"_s, services.manager.autoEnabled()}}, {}};
}

/// Off the main thread, for what loads a network or waits for the desktop.
QCoro::Task<> runningOnWorker(std::function<CommandOutcome()> work, Ended ended)
{
    const CommandOutcome outcome = co_await onWorker(std::move(work));
    ended(outcome);
}

QString existingFile(const QString &argument)
{
    if (!argument.contains('/'_L1)) {
        const QString inLibrary = ImageStore::directory() + '/'_L1 + argument;
        if (QFileInfo::exists(inLibrary)) {
            return inLibrary;
        }
    }
    const QFileInfo file(argument);
    return file.exists() ? file.absoluteFilePath() : QString();
}

} // namespace

QString fileOf(const CommandLine &line)
{
    const QString path = existingFile(line.arguments.first());
    if (mayBeElsewhere(line)) {
        return path;
    }
    const QString inLibrary = ImageStore::directory() + '/'_L1 + imageName(path);
    const bool isSame = QFileInfo(path).canonicalFilePath() == QFileInfo(inLibrary).canonicalFilePath();
    return isSame && ImageStore::allImages().contains(inLibrary) ? inLibrary : QString();
}

QString noSuchFile(const CommandLine &line)
{
    const QString text = mayBeElsewhere(line) ? Tr::tr("no such file: %1") : Tr::tr("not in the library: %1");
    return text.arg(line.arguments.first());
}

void start(Services &services, const CommandLine &line, const Ended &ended)
{
    WallpaperManager &manager = services.manager;
    switch (line.verb) {
    case Verb::Generate:
        if (line.prompt) {
            manager.setPrompt(*line.prompt);
            services.defaults.sync();
        }
        runOperation(
            manager, [&manager] { manager.generateAndSet(); },
            [&manager, ended](const OperationResult &result) { ended(operationOutcome(manager, result)); });
        return;
    case Verb::Upscale:
    case Verb::Set:
    case Verb::Favorite:
    case Verb::Delete:
        startOnFile(manager, line, ended);
        return;
    case Verb::Settings:
        ended(changeSettings(services, line));
        return;
    case Verb::Auto:
        ended(switchAuto(services, line));
        return;
    case Verb::Status:
        manager.askForScreens([&services, ended](const QList<Screen> &screens) {
            ended({kSucceeded, Reports::status(services.manager, *services.desktop, screens), {}});
        });
        return;
    case Verb::Key:
        ended(changeKeys(line, &manager));
        return;
    case Verb::Autostart:
        services.tasks.start(runningOnWorker([line] { return switchAutostart(line); }, ended));
        return;
    case Verb::Model:
        services.tasks.start(
            runningOnWorker([line, stop = services.tasks.stopToken()] { return useModel(line, stop); }, ended));
        return;
    case Verb::History:
        ended({kSucceeded, Reports::history(manager), {}});
        return;
    case Verb::Albums:
        ended({kSucceeded, Reports::albums(manager), {}});
        return;
    default:
        Q_ASSERT(false);
    }
}

CommandOutcome changeKeys(const CommandLine &line, WallpaperManager *manager)
{
    const QString &action = line.arguments.first();
    if (action != "list"_L1) {
        const QString &id = line.arguments.at(1);
        const bool isSet = action == "set"_L1;
        if (isSet && line.secret.isEmpty()) {
            return failure(Tr::tr("no key on standard input"));
        }
        if (isSet) {
            manager != nullptr ? manager->saveKey(line.secret, id) : (void)Keychain::save(line.secret, id);
        } else {
            manager != nullptr ? manager->removeKey(id) : (void)Keychain::remove(id);
        }
        if (Keychain::load(id) != (isSet ? std::optional(line.secret) : std::nullopt)) {
            return failure(Tr::tr("could not write the key file"));
        }
    }
    QJsonArray ids;
    for (const auto &[id, key] : Keychain::readAll()) {
        ids.append(id);
    }
    return {kSucceeded, ids, {}};
}

CommandOutcome switchAutostart(const CommandLine &line)
{
    const bool enabled = line.arguments.first() == "on"_L1;
    if (const Result<> set = setAutostart(enabled ? Autostart::On : Autostart::Off); !set) {
        return failure(set.failure().words);
    }
    return {kSucceeded, QJsonObject{{u"autostart"_s, enabled}}, {}};
}

CommandOutcome useModel(const CommandLine &line, const std::stop_token &stop)
{
    try {
        if (line.arguments.size() == 2) {
            installModel(line.arguments.at(1), stop);
        }
        const std::optional<QString> file = findModel();
        return {kSucceeded,
                QJsonObject{{u"file"_s, Reports::textOrNull(file.value_or(QString()))},
                            {u"description"_s, file ? QJsonValue(describeModel(*file)) : QJsonValue()}},
                {}};
    } catch (const std::exception &error) {
        return failure(QString::fromUtf8(error.what()));
    }
}

} // namespace quorvane::CommandRunner
