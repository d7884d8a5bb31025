#pragma once

#include "Platform/Failure.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>

namespace quorvane {

inline constexpr int kSucceeded = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongCommandLine = 2;

/// How a command ended. It can be carried from one process to another.
struct CommandOutcome
{
    int status = kSucceeded;        ///< The exit status.
    QJsonValue value;               ///< What --json prints; a result that failed is a value too.
    std::optional<Failure> problem; ///< Instead of a value, where there is nothing to tell but that.
};

/// What --json prints of a failure.
[[nodiscard]] inline QJsonValue failureJson(const Failure &failure)
{
    return QJsonObject{{QStringLiteral("status"), failure.words}, {QStringLiteral("isError"), true}};
}

} // namespace quorvane
