#pragma once

#include "App/Command/CommandOutcome.h"

#include <QJsonValue>
#include <QString>

/// Standard input, output and error of a command.
namespace quorvane::Console {

/// text on standard output, with a line's end. A terminal shows what is no text in it, and obeys none of it.
void print(const QString &text);

/// value on standard output as one line of JSON, an object, a list or a single value.
void printJson(const QJsonValue &value);

/// words on standard error as one line, whatever is in them.
void printError(const QString &words);

/// Ends with words instead of a value: prints them, for a program as JSON too, and returns status.
int fail(const Failure &failure, bool json, int status = kFailed);

/// A note on standard error that the next one replaces; nothing where that is no terminal.
void printProgress(const QString &note);

/// Standard input to its end, without one trailing newline. At a terminal one line, asked for without echo. Fails
/// when it is no UTF-8 text or is longer than a key can be.
[[nodiscard]] Result<QString> readSecret(const QString &question);

} // namespace quorvane::Console
