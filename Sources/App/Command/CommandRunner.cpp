#include "App/Command/CommandRunner.h"

#include "App/Command/JsonText.h"
#include "App/Command/LibraryReport.h"
#include "App/Command/Services.h"
#include "App/Command/SettingsCommands.h"
#include "App/Command/StatusReport.h"
#include "Platform/DescribedError.h"
#include "Platform/System/Autostart.h"
#include "Platform/Threads/Worker.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Upscaling/ModelInstall.h"
#include "Upscaling/Network/ModelFiles.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonObject>

#include <memory>
#include <optional>

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
    return {status, {}, Failure{problem}};
}

bool mayBeElsewhere(const CommandLine &line)
{
    return line.verb == Verb::Set || line.verb == Verb::Upscale;
}

/// The operation's own last words, and what it left.
CommandOutcome operationOutcome(const OperationResult &result)
{
    const QJsonObject value{{u"status"_s, result.status},
                            {u"isError"_s, result.isError},
                            {u"file"_s, Reports::textOrNull(result.file)},
                            {u"original"_s, Reports::textOrNull(result.original)},
                            {u"problems"_s, QJsonArray::fromStringList(result.problems)}};
    return {result.isError ? kFailed : kSucceeded, value, {}};
}

CommandOutcome changedFileOutcome(const WallpaperManager &manager, const CommandLine &line, const QString &file,
                                  const OperationResult &result)
{
    if (result.isError) {
        return failure(result.status);
    }
    if (line.verb == Verb::Delete && QFileInfo::exists(file)) {
        return failure(Tr::tr("could not delete %1").arg(line.arguments.first()));
    }
    QJsonObject value = Reports::changedFile(manager, file);
    if (!result.problems.isEmpty()) {
        value.insert(u"problems"_s, QJsonArray::fromStringList(result.problems));
    }
    return {kSucceeded, value, {}};
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
    const Result<QString> found = fileOf(line);
    if (!found) {
        ended({kFailed, {}, found.failure()});
        return;
    }
    const QString &file = *found;
    // A folder, a pipe or a device: not every desktop looks before it says that it is shown.
    if (mayBeElsewhere(line) && !QFileInfo(file).isFile()) {
        ended(failure(Tr::tr("not a regular file: %1").arg(line.arguments.first())));
        return;
    }
    if (line.verb == Verb::Upscale && QImageReader::imageFormat(file).isEmpty()) {
        ended(failure(Tr::tr("not a picture: %1").arg(line.arguments.first()))); // It would be paid all the same.
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
        ended(mayBeElsewhere(line) ? operationOutcome(result) : changedFileOutcome(manager, line, file, result));
    });
}

/// Off the main thread, for what loads a network or waits for the desktop.
QCoro::Task<> runningOnWorker(std::function<CommandOutcome()> work, Ended ended)
{
    const CommandOutcome outcome = co_await onWorker(std::move(work));
    ended(outcome);
}

/// Nothing where there is no such file.
std::optional<QString> existingFile(const QString &argument)
{
    if (argument.isEmpty()) {
        return {};
    }
    if (!argument.contains('/'_L1)) {
        const QString inLibrary = ImageStore::directory() + '/'_L1 + argument;
        if (QFileInfo::exists(inLibrary)) {
            return inLibrary;
        }
    }
    const QFileInfo file(argument);
    return file.exists() ? std::optional(file.absoluteFilePath()) : std::nullopt;
}

} // namespace

Result<QString> fileOf(const CommandLine &line)
{
    const QString &argument = line.arguments.first();
    const std::optional<QString> path = existingFile(argument);
    if (mayBeElsewhere(line)) {
        return path ? Result<QString>(*path) : Failure{Tr::tr("no such file: %1").arg(argument)};
    }
    if (path) {
        const QString inLibrary = ImageStore::directory() + '/'_L1 + imageName(*path);
        const bool isSame = QFileInfo(*path).canonicalFilePath() == QFileInfo(inLibrary).canonicalFilePath();
        if (isSame && ImageStore::allImages().contains(inLibrary)) {
            return inLibrary;
        }
    }
    return Failure{Tr::tr("not in the library: %1").arg(argument)};
}

void start(Services &services, const CommandLine &line, const Ended &whenDone)
{
    WallpaperManager &manager = services.manager;
    const auto whenKept = [&services, whenDone](const CommandOutcome &outcome) {
        services.tasks.start(SettingsCommands::endingWhenKept(services.defaults, outcome, whenDone));
    };
    const Ended ended = SettingsCommands::mayChange(line) ? Ended(whenKept) : whenDone;
    switch (line.verb) {
    case Verb::Generate:
        if (line.prompt) {
            manager.setPrompt(*line.prompt);
        }
        runOperation(
            manager, [&manager] { manager.generateAndSet(); },
            [ended](const OperationResult &result) { ended(operationOutcome(result)); });
        return;
    case Verb::Upscale:
    case Verb::Set:
    case Verb::Favorite:
    case Verb::Delete:
        startOnFile(manager, line, ended);
        return;
    case Verb::Settings:
        ended(SettingsCommands::settings(services, line));
        return;
    case Verb::Auto:
        ended(SettingsCommands::switchAuto(manager, line));
        return;
    case Verb::Cancel:
        ended({kSucceeded, QJsonObject{{u"cancelled"_s, manager.cancel()}}, {}});
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
        const Result<> kept = isSet ? Keychain::save(line.secret, id) : Keychain::remove(id);
        if (!kept) {
            return failure(kept.failure().words);
        }
        if (manager != nullptr) {
            Q_EMIT manager->keysChanged();
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
        if (!file) {
            return {kFailed,
                    QJsonObject{{u"file"_s, QJsonValue()},
                                {u"description"_s, QJsonValue()},
                                {u"status"_s, missingModel().errorDescription()},
                                {u"isError"_s, true}},
                    {}};
        }
        return {kSucceeded, QJsonObject{{u"file"_s, *file}, {u"description"_s, describeModel(*file)}}, {}};
    } catch (const std::exception &error) {
        return failure(failureOf(error).words);
    }
}

} // namespace quorvane::CommandRunner
