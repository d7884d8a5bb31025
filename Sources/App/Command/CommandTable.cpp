#include "App/Command/CommandTable.h"

#include "Providers/ImageServices.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(CommandTable)
};

using Verb = CommandLine::Verb;
using Argument = CommandForm::Argument;
using Extra = CommandForm::Extra;
using By = CommandForm::By;

QList<CommandForm> table()
{
    return {
        {Verb::Generate,
         u"generate"_s,
         {},
         {},
         Extra::Prompt,
         u"Generate"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "make a picture and set it as the wallpaper")},
        {Verb::Upscale,
         u"upscale"_s,
         {},
         {Argument::File},
         Extra::None,
         u"Upscale"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "make a 4K copy of a picture and set it")},
        {Verb::Set,
         u"set"_s,
         {},
         {Argument::File},
         Extra::None,
         u"Set"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "set a picture as the wallpaper of every screen")},
        {Verb::Status,
         u"status"_s,
         {},
         {},
         Extra::None,
         u"Status"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "provider, settings, schedule, wallpaper, screens")},
        {Verb::History,
         u"history"_s,
         {},
         {},
         Extra::None,
         u"History"_s,
         By::Process,
         QT_TRANSLATE_NOOP("CommandTable", "list the pictures, newest first")},
        {Verb::Albums,
         u"albums"_s,
         {},
         {},
         Extra::None,
         u"Albums"_s,
         By::Process,
         QT_TRANSLATE_NOOP("CommandTable", "list the pictures by prompt")},
        {Verb::Favorite,
         u"favorite"_s,
         {},
         {Argument::File},
         Extra::None,
         u"Favorite"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "mark a picture as a favourite, or no longer")},
        {Verb::Delete,
         u"delete"_s,
         {},
         {Argument::File},
         Extra::None,
         u"Delete"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "delete a picture and its 4K partner for good")},
        {Verb::Settings,
         u"settings"_s,
         {},
         {},
         Extra::None,
         u"Settings"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "print all settings")},
        {Verb::Settings,
         u"settings"_s,
         {},
         {Argument::Setting},
         Extra::None,
         u"Setting"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "print a setting")},
        {Verb::Settings,
         u"settings"_s,
         {},
         {Argument::Setting, Argument::Value},
         Extra::None,
         u"SetSetting"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "change a setting")},
        {Verb::Settings,
         u"settings"_s,
         {},
         {Argument::Setting},
         Extra::Unset,
         u"UnsetSetting"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "go back to the default of a setting")},
        {Verb::Key,
         u"key"_s,
         u"list"_s,
         {},
         Extra::None,
         u"ListKeys"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "list the services whose API keys are stored")},
        {Verb::Key,
         u"key"_s,
         u"set"_s,
         {Argument::Service},
         Extra::Secret,
         u"SetKey"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "store an API key, read from standard input")},
        {Verb::Key,
         u"key"_s,
         u"delete"_s,
         {Argument::Service},
         Extra::None,
         u"DeleteKey"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "delete an API key")},
        {Verb::Auto,
         u"auto"_s,
         {},
         {Argument::Switch},
         Extra::None,
         u"Auto"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "automatic mode")},
        {Verb::Autostart,
         u"autostart"_s,
         {},
         {Argument::Switch},
         Extra::None,
         u"Autostart"_s,
         By::Process,
         QT_TRANSLATE_NOOP("CommandTable", "start with the session")},
        {Verb::Model,
         u"model"_s,
         {},
         {},
         Extra::None,
         u"Model"_s,
         By::Process,
         QT_TRANSLATE_NOOP("CommandTable", "show the super-resolution network")},
        {Verb::Model,
         u"model"_s,
         u"install"_s,
         {Argument::File},
         Extra::None,
         u"InstallModel"_s,
         By::Process,
         QT_TRANSLATE_NOOP("CommandTable", "check a network and make it yours")},
        {Verb::Cancel,
         u"cancel"_s,
         {},
         {},
         Extra::None,
         u"Cancel"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "end what makes a picture")},
        {Verb::Quit,
         u"quit"_s,
         {},
         {},
         Extra::None,
         u"Quit"_s,
         By::Application,
         QT_TRANSLATE_NOOP("CommandTable", "end the running application")},
    };
}

QString nameOf(Argument argument)
{
    switch (argument) {
    case Argument::File:
        return Tr::tr("FILE");
    case Argument::Setting:
        return Tr::tr("KEY");
    case Argument::Value:
        return Tr::tr("VALUE");
    case Argument::Service:
        return Tr::tr("ID");
    case Argument::Switch:
        break;
    }
    return u"on|off"_s;
}

bool isTaken(Argument argument, const QString &text)
{
    switch (argument) {
    case Argument::Service:
        return serviceIds().contains(text);
    case Argument::Switch:
        return text == "on"_L1 || text == "off"_L1;
    default:
        return true;
    }
}

bool hasForm(const CommandLine &line, const CommandForm &form)
{
    const qsizetype words = form.action.isEmpty() ? 0 : 1;
    return form.verb == line.verb && line.unset == (form.extra == Extra::Unset) &&
           line.arguments.size() == words + form.arguments.size() &&
           (words == 0 || line.arguments.first() == form.action) &&
           std::equal(form.arguments.begin(), form.arguments.end(), line.arguments.begin() + words, isTaken);
}

/// How many columns of a terminal text takes: characters of the East take two.
qsizetype columns(const QString &text)
{
    constexpr char16_t kFirstWide = 0x1100;
    return text.size() +
           std::count_if(text.begin(), text.end(), [](QChar character) { return character.unicode() >= kFirstWide; });
}

} // namespace

const QList<CommandForm> &commandForms()
{
    static const QList<CommandForm> forms = table();
    return forms;
}

const CommandForm *formOf(const CommandLine &line)
{
    const QList<CommandForm> &forms = commandForms();
    const auto found =
        std::find_if(forms.begin(), forms.end(), [&line](const CommandForm &form) { return hasForm(line, form); });
    return found == forms.end() ? nullptr : &*found;
}

QString usage(const CommandForm &form)
{
    QStringList words{form.name};
    if (!form.action.isEmpty()) {
        words.append(form.action);
    }
    if (form.extra == Extra::Unset) {
        words.append(u"--unset"_s);
    }
    for (const Argument argument : form.arguments) {
        words.append(nameOf(argument));
    }
    if (form.extra == Extra::Prompt) {
        words.append(Tr::tr("[--prompt TEXT]"));
    }
    return words.join(' '_L1);
}

QString usage(Verb verb)
{
    QStringList all;
    for (const CommandForm &form : commandForms()) {
        if (form.verb == verb) {
            all.append(usage(form));
        }
    }
    return u"quorvane "_s + (all.isEmpty() ? u"--help"_s : all.join(u" | "_s));
}

QString helpText()
{
    constexpr int kUsageWidth = 28;
    QString commands;
    for (const CommandForm &form : commandForms()) {
        const QString written = usage(form);
        const QString gap(std::max<qsizetype>(kUsageWidth - columns(written), 2), ' '_L1);
        commands += u"  "_s + written + gap + Tr::tr(form.summary) + '\n'_L1;
    }
    const QString before = Tr::tr(R"(Usage: quorvane [--hidden]
       quorvane --action NAME
       quorvane COMMAND [--json]

Without a command the application starts and opens its window (--hidden: tray only).
--action starts it where it does not run, and does what the desktop entry's action
does: generate, toggle-auto, settings or quit.
)");
    const QString after = Tr::tr(R"(FILE is a path, or the name of a picture in the library.
ID is one of %1.
Exit status: 0 done, 1 ended with an error, 2 the command line is wrong.
)")
                              .arg(serviceIds().join(u", "_s));
    return before + '\n'_L1 + commands + '\n'_L1 + after;
}

} // namespace quorvane
