#include "App/Application/AppDelegate.h"

namespace quorvane {

AppDelegate::TerminateReply AppDelegate::applicationShouldTerminate()
{
    if (m_shouldReallyQuit) {
        return TerminateReply::TerminateNow;
    }
    std::vector<ApplicationWindow> open = m_windows();
    std::erase_if(open, [](const ApplicationWindow &window) { return !window.canBecomeMain || !window.isVisible; });
    if (open.empty()) {
        return TerminateReply::TerminateNow;
    }
    for (const ApplicationWindow &window : open) {
        window.close();
    }
    return TerminateReply::TerminateCancel;
}

} // namespace quorvane
