#include "Platform/Desktops/SessionDisplay.h"

#include "Platform/Desktops/DesktopPictureX11.h"
#include "Platform/Wayland/WaylandFacts.h"

namespace quorvane {

QList<Screen> SessionDisplay::screens(std::chrono::milliseconds limit) const
{
    if (!wayland.isEmpty()) {
        return waylandFacts(wayland, QDeadlineTimer(limit)).screens;
    }
    return x11.isEmpty() ? QList<Screen>() : DesktopPictureX11(x11, {}, limit).screens();
}

SessionDisplay sessionDisplay()
{
    return {qEnvironmentVariable("WAYLAND_DISPLAY"), qgetenv("DISPLAY")};
}

} // namespace quorvane
