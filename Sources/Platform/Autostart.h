#pragma once

namespace quorvane {

enum class Autostart { Off, On };

/// Writes or removes the entry by which the desktop starts the program, hidden, with the session:
/// "autostart/app.quorvane.Quorvane.desktop" in the configuration folder. False when that failed.
[[nodiscard]] bool setAutostart(Autostart autostart);

} // namespace quorvane
