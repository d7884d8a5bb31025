#include "App/Command/CommandLine.h"

#include "App/Command/CommandTable.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

using Verb = CommandLine::Verb;

bool isOneOf(const QString &text, std::initializer_list<const char *> words)
{
    return std::any_of(words.begin(), words.end(), [&text](const char *word) { return text == QLatin1String(word); });
}

CommandLine only(Verb verb)
{
    CommandLine line;
    line.verb = verb;
    return line;
}

} // namespace

bool CommandLine::isDesktopAction(const QString &name)
{
    return isOneOf(name, {"generate", "toggle-auto", "settings", "quit"});
}

Result<CommandLine> parseCommandLine(const QStringList &arguments)
{
    CommandLine line;
    bool optionsEnded = false;
    bool hasVerb = false;
    for (qsizetype index = 0; index < arguments.size(); ++index) {
        const QString &argument = arguments.at(index);
        const bool isOption = !optionsEnded && argument.startsWith('-'_L1) && argument.size() > 1;
        if (isOption && argument == "--"_L1) {
            optionsEnded = true;
        } else if (isOption && isOneOf(argument, {"--help", "-h"})) {
            return only(Verb::Help);
        } else if (isOption && argument == "--version"_L1) {
            return only(Verb::Version);
        } else if (isOption && argument == "--json"_L1) {
            line.json = true;
        } else if (isOption && argument == "--hidden"_L1 && !hasVerb) {
            line.hidden = true;
        } else if (isOption && argument == "--action"_L1 && !hasVerb) {
            if (++index == arguments.size() || !CommandLine::isDesktopAction(arguments.at(index))) {
                return Failure{Tr::tr("--action needs one of: generate, toggle-auto, settings, quit")};
            }
            line.action = arguments.at(index);
        } else if (isOption && argument == "--unset"_L1 && line.verb == Verb::Settings) {
            line.unset = true;
        } else if (isOption && argument.startsWith("--prompt="_L1) && line.verb == Verb::Generate) {
            line.prompt = argument.sliced("--prompt="_L1.size());
        } else if (isOption && argument == "--prompt"_L1 && line.verb == Verb::Generate) {
            if (++index == arguments.size()) {
                return Failure{Tr::tr("--prompt needs a text")};
            }
            line.prompt = arguments.at(index);
        } else if (isOption && !(line.verb == Verb::Settings && line.arguments.size() == 1)) {
            return Failure{Tr::tr("unknown option %1").arg(argument)};
        } else if (!hasVerb) {
            const QList<CommandForm> &forms = commandForms();
            const auto form = std::find_if(forms.begin(), forms.end(),
                                           [&argument](const CommandForm &each) { return each.name == argument; });
            if (form == forms.end()) {
                return Failure{Tr::tr("unknown command %1").arg(argument)};
            }
            line.verb = form->verb;
            hasVerb = true;
        } else {
            line.arguments.append(argument);
        }
    }
    if (!hasVerb) {
        return line;
    }
    if (line.hidden || line.action || formOf(line) == nullptr) {
        return Failure{Tr::tr("usage: %1").arg(usage(line.verb))};
    }
    return line;
}

} // namespace quorvane
