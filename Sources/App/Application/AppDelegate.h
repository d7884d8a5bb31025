#pragma once

#include <functional>
#include <vector>

namespace quorvane {

/// One window of the application, as far as quitting is concerned.
struct ApplicationWindow
{
    bool canBecomeMain; ///< No pop-up, no tool tip.
    bool isVisible;
    std::function<void()> close;
};

/// Decides when the application may really quit: it lives in the menu bar, and its windows come and go.
class AppDelegate
{
  public:
    enum class TerminateReply { TerminateNow, TerminateCancel };

    /// windows lists the application's windows in its window order.
    explicit AppDelegate(std::function<std::vector<ApplicationWindow>()> windows)
        : m_windows(std::move(windows))
    {
    }

    /// The menu's "Quit" was chosen; from now on nothing is asked any more.
    void setShouldReallyQuit() { m_shouldReallyQuit = true; }
    [[nodiscard]] bool shouldReallyQuit() const { return m_shouldReallyQuit; }

    [[nodiscard]] static bool applicationShouldTerminateAfterLastWindowClosed() { return false; }

    /// With a window open this closes the windows and cancels, so that a quit command is at first a way back to the
    /// menu bar.
    [[nodiscard]] TerminateReply applicationShouldTerminate();

  private:
    std::function<std::vector<ApplicationWindow>()> m_windows;
    bool m_shouldReallyQuit = false;
};

} // namespace quorvane
