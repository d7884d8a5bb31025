#pragma once

#include <QJsonValue>
#include <QString>

namespace quorvane {

inline constexpr int kSucceeded = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongCommandLine = 2;

/// How a command ended. It can be carried from one process to another.
struct CommandOutcome
{
    int status = kSucceeded; ///< The exit status.
    QJsonValue value;        ///< What --json prints; a result that failed is a value too.
    QString problem;         ///< For the user, instead of a value, where there is nothing to print but that.
};

} // namespace quorvane
