#pragma once

#include <QByteArray>

namespace quorvane {

/// Whether the desktops that take gigabytes on the disk and minutes to start are to be tested. They then must be: one
/// that is not installed is a failure.
[[nodiscard]] inline bool bigDesktopsAreWanted()
{
    return qgetenv("QUORVANE_TEST_DESKTOPS") == "all";
}

constexpr char kBigDesktopsText[] = "only scripts/test --desktops tests the big desktops";

} // namespace quorvane
