#pragma once

#include "App/Command/CommandTable.h"

#include <QString>
#include <QVariantList>

#include <optional>

/// The face of the running application on the session bus: names, and which method stands for which command line.
namespace quorvane::Control {

[[nodiscard]] QString busName(); ///< Also the application's id.
[[nodiscard]] QString objectPath();
[[nodiscard]] QString interfaceName();        ///< Our own operations and properties.
[[nodiscard]] QString applicationInterface(); ///< org.freedesktop.Application
[[nodiscard]] QString failedError();          ///< The command ended with status 1.
[[nodiscard]] QString wrongArgumentsError();  ///< The command ended with status 2.

/// The types of what the method of a form takes, as D-Bus writes them.
[[nodiscard]] QStringList typesOf(const CommandForm &form);

/// One call of our interface, as it arrives or is sent.
struct Call
{
    QString method;
    QVariantList arguments;

    friend bool operator==(const Call &, const Call &) = default;
};

/// The call that carries the command out; nothing for a command that each process does by itself.
[[nodiscard]] std::optional<Call> callFor(const CommandLine &line);

/// The command that the call means; nothing when there is no such method or its arguments are of another type.
/// Such a line has passed every test that the command line makes.
[[nodiscard]] std::optional<CommandLine> lineFrom(const Call &call);

} // namespace quorvane::Control
