#pragma once

#include "Platform/Failure.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

/// What the user asked for on the command line.
struct CommandLine
{
    enum class Verb {
        Start, ///< No command: the application itself.
        Generate,
        Upscale,
        Set,
        Status,
        History,
        Albums,
        Favorite,
        Delete,
        Settings,
        Key,
        Auto,
        Autostart,
        Model,
        Cancel,
        Quit,
        Help,
        Version
    };

    /// Whether the desktop entry has an action of that name.
    [[nodiscard]] static bool isDesktopAction(const QString &name);

    Verb verb = Verb::Start;
    QStringList arguments;         ///< What follows the command, options taken out; as many as the command takes.
    std::optional<QString> prompt; ///< generate --prompt
    QString secret;                ///< key set: the key. Comes from standard input, never from the arguments.
    bool json = false;             ///< One JSON value on standard output and nothing else there.
    bool hidden = false;           ///< Start without a window.
    std::optional<QString> action; ///< Start and do what this action of the desktop entry does, without a window.
    bool unset = false;            ///< settings --unset: remove the key.
};

/// Reads the arguments without the program's name. Fails with what is wrong with them.
[[nodiscard]] Result<CommandLine> parseCommandLine(const QStringList &arguments);

} // namespace quorvane
