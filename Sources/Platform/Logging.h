#pragma once

#include <QLoggingCategory>

/// What the program says to who looks for a fault, on standard error: nothing, unless QT_LOGGING_RULES asks for it, as
/// in QT_LOGGING_RULES="quorvane.*=true". Each is one line of facts in English, from any thread.
///
/// People show such lines to others. So there is never a key or a prompt in them, nor the text of a service, which may
/// repeat either, nor the path of a picture.
namespace quorvane {

Q_DECLARE_LOGGING_CATEGORY(logDesktop)   ///< quorvane.desktop: what the background is set by, and how that ended.
Q_DECLARE_LOGGING_CATEGORY(logBus)       ///< quorvane.bus: connections, the name, requests to portals.
Q_DECLARE_LOGGING_CATEGORY(logNetwork)   ///< quorvane.network: what was sent where, how long it took, how it ended.
Q_DECLARE_LOGGING_CATEGORY(logLibrary)   ///< quorvane.library: files that were written, deleted or put aside.
Q_DECLARE_LOGGING_CATEGORY(logUpscaling) ///< quorvane.upscaling: what enlarged a picture, and how long it took.
Q_DECLARE_LOGGING_CATEGORY(logWindows)   ///< quorvane.windows: windows made and let go.

} // namespace quorvane
