#pragma once

#include "Manager/Operation.h"

#include <QString>

#include <optional>

namespace quorvane {

/// What the desktop is asked to show for some seconds.
struct Notice
{
    QString title;
    QString text;
    QString picture; ///< An image file that is shown small, or empty.

    friend bool operator==(const Notice &, const Notice &) = default;
};

/// What to tell the user who does not look: that a timed generation failed, or that a picture was set. What was not
/// kept is told in lines of its own.
[[nodiscard]] std::optional<Notice> noticeFor(const OperationResult &ended, bool isAnyWindowVisible);

/// What was not kept, or was found unreadable, where nothing else is to be told; never of an empty list.
[[nodiscard]] Notice noticeOf(const QStringList &problems);

} // namespace quorvane
