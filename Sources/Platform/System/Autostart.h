#pragma once

#include "Platform/Failure.h"

#include <QString>

namespace quorvane {

enum class Autostart { Off, On };

/// Has the desktop start the program, hidden, with the session, or no longer. In a sandbox the desktop is asked,
/// which may ask the user in turn; elsewhere the entry is written.
[[nodiscard]] Result<> setAutostart(Autostart autostart);

/// The user's own entry: "autostart/app.quorvane.Quorvane.desktop" in the configuration folder.
[[nodiscard]] QString autostartEntryPath();

/// Writes the user's own entry, with program as what is started, or removes it. Where the system has an entry of that
/// name for all users, removing would bring that back, so a hidden one goes in its place.
[[nodiscard]] Result<> writeAutostartEntry(Autostart autostart, const QString &program);

} // namespace quorvane
