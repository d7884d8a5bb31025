#pragma once

#include "Platform/Failure.h"
#include "Platform/Files/SystemCall.h"

#include <QDeadlineTimer>
#include <QString>

namespace quorvane {

/// A new connection to the socket at path. Where nobody listens there in time the Failure holds the system's words.
[[nodiscard]] Result<FileDescriptor> connectUnixSocket(const QString &path, QDeadlineTimer deadline);

} // namespace quorvane
