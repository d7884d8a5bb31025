#include "App/Command/CommandLine.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

using Verb = CommandLine::Verb;

/// A command, and how many arguments it takes.
struct Form
{
    QLatin1String name;
    Verb verb;
    int fewest;
    int most;
};

constexpr std::array kForms{
    Form{"generate"_L1, Verb::Generate, 0, 0}, Form{"upscale"_L1, Verb::Upscale, 1, 1},
    Form{"set"_L1, Verb::Set, 1, 1},           Form{"status"_L1, Verb::Status, 0, 0},
    Form{"history"_L1, Verb::History, 0, 0},   Form{"albums"_L1, Verb::Albums, 0, 0},
    Form{"favorite"_L1, Verb::Favorite, 1, 1}, Form{"delete"_L1, Verb::Delete, 1, 1},
    Form{"settings"_L1, Verb::Settings, 0, 2}, Form{"key"_L1, Verb::Key, 1, 2},
    Form{"auto"_L1, Verb::Auto, 1, 1},         Form{"autostart"_L1, Verb::Autostart, 1, 1},
    Form{"model"_L1, Verb::Model, 0, 2},       Form{"quit"_L1, Verb::Quit, 0, 0},
};

QString usage(Verb verb)
{
    switch (verb) {
    case Verb::Upscale:
        return u"quorvane upscale FILE"_s;
    case Verb::Set:
        return u"quorvane set FILE"_s;
    case Verb::Favorite:
        return u"quorvane favorite FILE"_s;
    case Verb::Delete:
        return u"quorvane delete FILE"_s;
    case Verb::Settings:
        return u"quorvane settings [KEY [VALUE]] | settings --unset KEY"_s;
    case Verb::Key:
        return u"quorvane key list | key set ID | key delete ID"_s;
    case Verb::Auto:
        return u"quorvane auto on|off"_s;
    case Verb::Autostart:
        return u"quorvane autostart on|off"_s;
    case Verb::Model:
        return u"quorvane model [install FILE]"_s;
    default:
        return u"quorvane --help"_s;
    }
}

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

/// Whether the arguments have the command's form beyond their number.
bool hasForm(const CommandLine &line)
{
    const QStringList &arguments = line.arguments;
    switch (line.verb) {
    case Verb::Settings:
        return !line.unset || arguments.size() == 1;
    case Verb::Key:
        return arguments.size() == 1 ? isOneOf(arguments.first(), {"list"})
                                     : isOneOf(arguments.first(), {"set", "delete"}) &&
                                           isOneOf(arguments.at(1), {"gemini", "grok", "openai"});
    case Verb::Auto:
    case Verb::Autostart:
        return isOneOf(arguments.first(), {"on", "off"});
    case Verb::Model:
        return arguments.isEmpty() || (arguments.size() == 2 && isOneOf(arguments.first(), {"install"}));
    default:
        return true;
    }
}

} // namespace

bool CommandLine::isDesktopAction(const QString &name)
{
    return isOneOf(name, {"generate", "toggle-auto", "settings", "quit"});
}

std::variant<CommandLine, QString> parseCommandLine(const QStringList &arguments)
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
                return Tr::tr("--action needs one of: generate, toggle-auto, settings, quit");
            }
            line.action = arguments.at(index);
        } else if (isOption && argument == "--unset"_L1 && line.verb == Verb::Settings) {
            line.unset = true;
        } else if (isOption && argument.startsWith("--prompt="_L1) && line.verb == Verb::Generate) {
            line.prompt = argument.sliced("--prompt="_L1.size());
        } else if (isOption && argument == "--prompt"_L1 && line.verb == Verb::Generate) {
            if (++index == arguments.size()) {
                return Tr::tr("--prompt needs a text");
            }
            line.prompt = arguments.at(index);
        } else if (isOption && !(line.verb == Verb::Settings && line.arguments.size() == 1)) {
            return Tr::tr("unknown option %1").arg(argument);
        } else if (!hasVerb) {
            const auto *form =
                std::find_if(kForms.begin(), kForms.end(), [&](const Form &each) { return each.name == argument; });
            if (form == kForms.end()) {
                return Tr::tr("unknown command %1").arg(argument);
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
    const auto *form =
        std::find_if(kForms.begin(), kForms.end(), [&](const Form &each) { return each.verb == line.verb; });
    if (line.hidden || line.action || line.arguments.size() < form->fewest || line.arguments.size() > form->most ||
        !hasForm(line)) {
        return Tr::tr("usage: %1").arg(usage(line.verb));
    }
    return line;
}

QString helpText()
{
    return Tr::tr(R"(Usage: quorvane [--hidden]
       quorvane --action NAME
       quorvane COMMAND [--json]

Without a command the application starts and opens its window (--hidden: tray only).
--action starts it where it does not run, and does what the desktop entry's action
does: generate, toggle-auto, settings or quit.

  generate [--prompt TEXT]      make a picture and set it as the wallpaper
  upscale FILE                  make a 4K copy of a picture and set it
  set FILE                      set a picture as the wallpaper of every screen
  status                        provider, settings, schedule, wallpaper, screens
  history, albums               what the gallery lists, in its order
  favorite FILE                 mark a picture as a favourite, or no longer
  delete FILE                   delete a picture and its 4K partner for good
  settings [KEY [VALUE]]        print all, print one, set one; --unset KEY
  key list|set ID|delete ID     API keys of gemini, grok, openai; set reads
                                the key from standard input
  auto on|off                   automatic mode
  autostart on|off              start with the session
  model [install FILE]          the super-resolution network
  quit                          end the running application

FILE is a path, or the name of a picture in the library.
Exit status: 0 done, 1 ended with an error, 2 the command line is wrong.
)");
}

} // namespace quorvane
