#include "Platform/Logging.h"

namespace quorvane {

// What is worth a line is logged as information, which is off below this threshold.
Q_LOGGING_CATEGORY(logDesktop, "quorvane.desktop", QtWarningMsg)
Q_LOGGING_CATEGORY(logBus, "quorvane.bus", QtWarningMsg)
Q_LOGGING_CATEGORY(logNetwork, "quorvane.network", QtWarningMsg)
Q_LOGGING_CATEGORY(logLibrary, "quorvane.library", QtWarningMsg)
Q_LOGGING_CATEGORY(logUpscaling, "quorvane.upscaling", QtWarningMsg)
Q_LOGGING_CATEGORY(logWindows, "quorvane.windows", QtWarningMsg)

} // namespace quorvane
