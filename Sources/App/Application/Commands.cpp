#include "App/Application/Commands.h"

#include "App/Command/CommandRunner.h"
#include "App/Command/CommandTable.h"
#include "App/Command/Console.h"
#include "App/Command/LibraryReport.h"
#include "App/Command/ProgressReport.h"
#include "App/Command/Services.h"
#include "App/Command/StatusReport.h"
#include "App/Control/Forwarding.h"
#include "Platform/Files/StorageNotices.h"
#include "Platform/PrintableText.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonObject>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Verb = CommandLine::Verb;

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(Commands)
};

void printSettings(const QJsonObject &values, const CommandLine &line)
{
    if (line.arguments.isEmpty()) {
        for (auto each = values.begin(); each != values.end(); ++each) {
            Console::print(each.key() + u" = "_s + each.value().toVariant().toString());
        }
    } else if (line.arguments.size() == 1 && !line.unset) {
        Console::print(values.value(line.arguments.first()).toVariant().toString());
    }
}

/// The value of an outcome for people.
void printText(const CommandLine &line, const QJsonValue &value)
{
    switch (line.verb) {
    case Verb::Generate:
    case Verb::Upscale:
    case Verb::Set:
        Console::print(printable(value["status"_L1].toString()));
        return;
    case Verb::Status:
        Console::print(Reports::statusText(value.toObject()));
        return;
    case Verb::History:
        Console::print(Reports::historyText(value.toArray()));
        return;
    case Verb::Albums:
        Console::print(Reports::albumsText(value.toArray()));
        return;
    case Verb::Settings:
        printSettings(value.toObject(), line);
        return;
    case Verb::Key:
        if (line.arguments.first() == "list"_L1) {
            const QJsonArray ids = value.toArray();
            for (const QJsonValue &id : ids) {
                Console::print(id.toString());
            }
        }
        return;
    case Verb::Cancel:
        Console::print(value["cancelled"_L1].toBool() ? Tr::tr("Cancelled.") : Tr::tr("Nothing is being made."));
        return;
    case Verb::Model:
        if (value["isError"_L1].toBool()) {
            Console::printError(u"quorvane: "_s + value["status"_L1].toString());
            return;
        }
        Console::print(value["file"_L1].toString());
        Console::print(value["description"_L1].toString());
        return;
    default:
        return;
    }
}

int finish(const CommandLine &line, const CommandOutcome &outcome)
{
    const QStringList notices = StorageNotices::take();
    for (const QString &notice : notices) {
        Console::printError(u"quorvane: "_s + notice);
    }
    if (outcome.problem) {
        return Console::fail(*outcome.problem, line.json, outcome.status);
    }
    const QJsonArray problems = outcome.value["problems"_L1].toArray();
    for (const QJsonValue &problem : problems) {
        Console::printError(u"quorvane: "_s + problem.toString());
    }
    line.json ? Console::printJson(outcome.value) : printText(line, outcome.value);
    return outcome.status;
}

/// Shows on standard error what the manager says while an operation runs.
void follow(WallpaperManager &manager)
{
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
}

CommandOutcome runHere(const CommandLine &line)
{
    if (line.verb == Verb::Key) {
        return CommandRunner::changeKeys(line);
    }
    Services services(Services::Life::OneCommand);
    if (!services.defaults.reading()) {
        Console::printError(u"quorvane: "_s + services.defaults.reading().failure().words);
    }
    for (const QString &problem : services.manager.problems()) {
        Console::printError(u"quorvane: "_s + problem); // Of the start; the rest is the outcome's.
    }
    follow(services.manager);
    std::optional<CommandOutcome> outcome;
    CommandRunner::start(services, line, [&outcome](const CommandOutcome &ended) { outcome = ended; });
    services.manager.waitUntilIdle();
    services.tasks.wait();
    return outcome.value();
}

/// Makes the arguments mean the same in another process: reads the key that is to be set, and makes files absolute.
/// Fails with what is wrong with them.
Result<> prepare(CommandLine &line)
{
    switch (line.verb) {
    case Verb::Key:
        if (line.arguments.first() == "set"_L1) {
            Result<QString> key = Console::readSecret(Tr::tr("API key for %1: ").arg(line.arguments.at(1)));
            if (!key) {
                return key.failure();
            }
            line.secret = std::move(*key);
        }
        return {};
    case Verb::Upscale:
    case Verb::Set:
    case Verb::Favorite:
    case Verb::Delete: {
        const Result<QString> file = CommandRunner::fileOf(line);
        if (!file) {
            return file.failure();
        }
        line.arguments = {*file};
        return {};
    }
    default:
        return {};
    }
}

} // namespace

int runCommand(CommandLine line)
{
    switch (line.verb) {
    case Verb::Help:
        Console::print(helpText().trimmed());
        return kSucceeded;
    case Verb::Version:
        Console::print(u"quorvane "_s + QCoreApplication::applicationVersion());
        return kSucceeded;
    case Verb::Autostart:
        return finish(line, CommandRunner::switchAutostart(line));
    case Verb::Model:
        return finish(line, CommandRunner::useModel(line));
    default:
        break;
    }
    if (const Result<> prepared = prepare(line); !prepared) {
        return Console::fail(prepared.failure(), line.json);
    }
    if (const std::optional<CommandOutcome> forwarded = forward(line)) {
        return finish(line, *forwarded);
    }
    if (line.verb == Verb::Quit) {
        return Console::fail(Failure{Tr::tr("the application is not running")}, line.json);
    }
    return finish(line, runHere(line));
}

} // namespace quorvane
