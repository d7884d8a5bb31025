#pragma once

namespace quorvane {

/// From now on, assistive technology hears of buttons, menu lines, tabs, switches and pickers also whether they are
/// disabled, and to press is the first thing that it can do with each: Qt tells neither of its Quick controls.
void describeControls();

} // namespace quorvane
