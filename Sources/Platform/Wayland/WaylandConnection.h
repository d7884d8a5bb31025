#pragma once

#include "Platform/Failure.h"

#include <QDeadlineTimer>
#include <QString>

#include <wayland-client.h>

namespace quorvane {

/// A connection to a compositor of our own, beside the one that Qt may have. For one thread; nothing in it waits longer
/// than it is told.
class WaylandConnection
{
  public:
    /// display as in WAYLAND_DISPLAY. Look at usable() before anything else.
    WaylandConnection(const QString &display, QDeadlineTimer deadline);
    ~WaylandConnection();
    WaylandConnection(const WaylandConnection &) = delete;
    WaylandConnection &operator=(const WaylandConnection &) = delete;
    WaylandConnection(WaylandConnection &&) = delete;
    WaylandConnection &operator=(WaylandConnection &&) = delete;

    /// Fails where nobody listens, the compositor found a mistake, or it went away.
    [[nodiscard]] Result<> usable() const;

    [[nodiscard]] wl_display *get() const { return m_display; }

    /// Sends what was asked so far, waits for events or until wakeDescriptor (if any) is readable, and handles the
    /// events. Fails when the deadline passed or the connection is not usable any more.
    Result<> dispatch(QDeadlineTimer deadline, int wakeDescriptor = -1);

    /// Waits until the compositor has done all that was asked so far; fails as dispatch().
    [[nodiscard]] Result<> finish(QDeadlineTimer deadline);

  private:
    [[nodiscard]] Result<> waitForEvents(QDeadlineTimer deadline, int wakeDescriptor);

    wl_display *m_display = nullptr;
};

} // namespace quorvane
