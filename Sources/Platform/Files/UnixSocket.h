#pragma once

#include <QDeadlineTimer>
#include <QString>

namespace quorvane {

/// The descriptor of a new connection to the socket at path; -1 where nobody listens there in time, with the reason in
/// errno. The caller closes it.
[[nodiscard]] int connectUnixSocket(const QString &path, QDeadlineTimer deadline);

} // namespace quorvane
