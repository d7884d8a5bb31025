#pragma once

#include "Platform/Failure.h"
#include "Platform/Pictures/Screen.h"
#include "Platform/Threads/TimeLimit.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>

namespace quorvane {

/// How long the calling program runs.
enum class ProgramLife { OneCommand, Application };

/// The seam to the desktop: which screens there are, and how a picture becomes their background.
///
/// Both operations wait for the desktop for up to kDesktopLimit in all, and setting a picture takes the time to decode
/// it besides, and where the desktop asks the user first, as long as the user takes; so they are called on a worker
/// thread, one at a time. Neither needs a QGuiApplication. Nothing is cached between calls: screens and desktops come
/// and go.
class DesktopPicture
{
  public:
    DesktopPicture() = default;
    DesktopPicture(const DesktopPicture &) = delete;
    DesktopPicture &operator=(const DesktopPicture &) = delete;
    DesktopPicture(DesktopPicture &&) = delete;
    DesktopPicture &operator=(DesktopPicture &&) = delete;
    virtual ~DesktopPicture() = default;

    /// Told, on the thread of setPicture(), that the desktop asks the user first; one line for the status. Set it
    /// before the first call.
    std::function<void(const QString &line)> asking;

    /// From now on nothing waits for the user, and what does so now ends with a failure. From any thread.
    virtual void stopAsking() {}

    /// The name that QUORVANE_DESKTOP takes, for example "sway" or "x11"; empty where no desktop was found.
    [[nodiscard]] virtual QString name() const = 0;

    /// Why this way was chosen, one line for "quorvane status".
    [[nodiscard]] virtual QString reason() const = 0;

    /// Whether what it sets is gone when the program ends, so that it has to be set again at the next start. Asked like
    /// screens(), below.
    [[nodiscard]] virtual bool endsWithTheProgram() { return false; }

    /// The attached screens in the desktop's order; empty when there is none or the desktop does not answer.
    [[nodiscard]] virtual QList<Screen> screens() = 0;

    /// Makes the picture at path (absolute) the background of the screens, in their order, filling each, cropped
    /// around the centre, never stretched. Stops at the first screen that refuses, with the desktop's own words or ours
    /// where it has none.
    [[nodiscard]] virtual Result<> setPicture(const QString &path, const QList<Screen> &screens) = 0;
};

} // namespace quorvane
