#pragma once

#include <QObject>

#include <chrono>
#include <memory>

namespace quorvane {

/// How long the screens must have been quiet before a change is told. One change of a mode alone makes several events,
/// and a docking station makes dozens.
inline constexpr std::chrono::milliseconds kScreensQuietTime{400};

/// The seam to the screens that come, go and change. What there is now is asked anew each time (DesktopPicture), since
/// nothing known from before an event can be relied upon. Belongs to the main thread and signals from its event loop.
class Screens : public QObject
{
    Q_OBJECT

  Q_SIGNALS:
    /// A screen was attached, removed, moved, resized or rescaled: once for everything that happens together. Also told
    /// when all is as before in the end, because a screen that was off for a moment may have lost its picture.
    void changed();
};

/// The screens of this display; null without a QGuiApplication.
[[nodiscard]] std::unique_ptr<Screens> makeScreens();

} // namespace quorvane
