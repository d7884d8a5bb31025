#pragma once

#include <QJsonValue>
#include <QString>

#include <optional>

/// Standard input, output and error of a command.
namespace quorvane::Console {

/// A line on standard output.
void print(const QString &line);

/// value on standard output as one line of JSON, an object, a list or a single value.
void printJson(const QJsonValue &value);

/// A line on standard error.
void printError(const QString &line);

/// A note on standard error that the next one replaces; nothing where that is no terminal.
void printProgress(const QString &note);

/// Standard input to its end, without one trailing newline. At a terminal one line, asked for without echo. Nothing
/// when it cannot be read, is no UTF-8 text or is longer than a key can be.
[[nodiscard]] std::optional<QString> readSecret(const QString &question);

} // namespace quorvane::Console
