#include "App/Command/SettingsCommands.h"

#include "App/Command/Services.h"
#include "App/Command/SettingsTable.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quorvane::SettingsCommands {

namespace {

using Verb = CommandLine::Verb;

/// What ended as outcome tells, where its changes of the settings may not have been kept.
CommandOutcome withSettings(CommandOutcome outcome, const Result<> &kept)
{
    if (kept || outcome.problem) {
        return outcome;
    }
    QJsonObject value = outcome.value.toObject();
    if (!value.contains("status"_L1)) {
        return {kFailed, {}, kept.failure()};
    }
    // The picture is made and set all the same.
    QJsonArray problems = value.value("problems"_L1).toArray();
    problems.append(kept.failure().words);
    value.insert(u"problems"_s, problems);
    outcome.value = value;
    return outcome;
}

} // namespace

CommandOutcome settings(Services &services, const CommandLine &line)
{
    SettingsTable table(services.manager, services.defaults);
    const QString key = line.arguments.value(0);
    Result<> changed;
    if (line.unset) {
        changed = table.unset(key);
    } else if (line.arguments.size() == 2) {
        changed = table.set(key, line.arguments.at(1));
    } else if (!key.isEmpty()) {
        const Result<Setting> setting = table.find(key);
        changed = setting ? Result<>() : setting.failure();
    }
    if (!changed) {
        return {kWrongCommandLine, {}, changed.failure()};
    }
    QJsonObject values;
    for (const Setting &setting : table.settings()) {
        if (line.arguments.isEmpty() || setting.key == key) {
            values.insert(setting.key, setting.value());
        }
    }
    return {kSucceeded, values, {}};
}

CommandOutcome switchAuto(WallpaperManager &manager, const CommandLine &line)
{
    manager.setAutoEnabled(line.arguments.first() == "on"_L1);
    return {kSucceeded, QJsonObject{{u"autoEnabled"_s, manager.autoEnabled()}}, {}};
}

QCoro::Task<> endingWhenKept(UserDefaults &defaults, CommandOutcome outcome, CommandRunner::Ended ended)
{
    const Result<> kept = co_await defaults.keeping();
    ended(withSettings(std::move(outcome), kept));
}

bool mayChange(const CommandLine &line)
{
    switch (line.verb) {
    case Verb::Generate:
    case Verb::Upscale:
    case Verb::Set:
    case Verb::Auto:
        return true;
    case Verb::Settings:
        return line.unset || line.arguments.size() == 2;
    default:
        return false;
    }
}

} // namespace quorvane::SettingsCommands
