#pragma once

#include <QString>

/// Where things lie. Read from the environment on every call, so that a test may move the home.
namespace quorvane::Paths {

/// The user's home: HOME, or the folder of the account where HOME does not name one. Empty where the account has none
/// either; a program must not go on then.
[[nodiscard]] QString home();

/// XDG_CONFIG_HOME, or ".config" in the home. Only absolute paths count, as the base directory rules say.
[[nodiscard]] QString configHome();

/// XDG_DATA_HOME, or ".local/share" in the home.
[[nodiscard]] QString dataHome();

/// XDG_STATE_HOME, or ".local/state" in the home: copies that a desktop needs for as long as a picture is set.
[[nodiscard]] QString stateHome();

} // namespace quorvane::Paths
