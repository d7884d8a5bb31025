#pragma once

#include "App/Command/CommandLine.h"

#include <QList>
#include <QString>

namespace quorvane {

/// One form of a command, with everything that more than one place must know about it. The reading of the command line
/// and its help follow from these rows, and so do the forwarding to the application that runs and what that application
/// offers on the bus. The shells' completions and the manual page are held to them by a test.
struct CommandForm
{
    enum class Argument {
        File,    ///< A path, or the name of a picture in the library.
        Setting, ///< The name of a setting.
        Value,   ///< The value of a setting: any text.
        Service, ///< The id of an image service.
        Switch   ///< "on" or "off"; true or false on the bus.
    };
    enum class Extra {
        None,
        Prompt, ///< May have "--prompt TEXT"; an option of the same name on the bus.
        Unset,  ///< Has "--unset", which tells it from the other forms.
        Secret  ///< Has a text that is never an argument of a process; on the bus it is the last one.
    };
    enum class By {
        Application, ///< The application carries it out while it runs.
        Process      ///< Each process by itself: files tell it to any, or are changed by any.
    };

    CommandLine::Verb verb;
    QString name;   ///< "key" of "key set".
    QString action; ///< "set" of "key set"; empty where the name says it all.
    QList<Argument> arguments;
    Extra extra;
    QString method; ///< On the bus, where every form can be asked for.
    By by;
    const char *summary; ///< For the help, not yet translated.
};

[[nodiscard]] const QList<CommandForm> &commandForms();

/// The form that line has; null where the command has no such form.
[[nodiscard]] const CommandForm *formOf(const CommandLine &line);

/// The form as one writes it: "key set ID".
[[nodiscard]] QString usage(const CommandForm &form);

/// The same for all forms of a command, as one line.
[[nodiscard]] QString usage(CommandLine::Verb verb);

/// What --help prints.
[[nodiscard]] QString helpText();

} // namespace quorvane
