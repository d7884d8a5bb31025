#pragma once

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

/// What is known when an operation has ended.
struct EndedOperation
{
    bool isTimed;
    bool isError;
    QString status;
    QString file; ///< The picture that was made or set; empty where there is none.
    bool isAnyWindowVisible;
};

/// What to tell the user who does not look: that a timed generation failed, or that a picture was set.
[[nodiscard]] std::optional<Notice> noticeFor(const EndedOperation &ended);

} // namespace quorvane
