#pragma once

#include "Platform/Failure.h"
#include "Platform/X11/X11Pixels.h"

#include <QByteArray>
#include <QList>
#include <QRect>
#include <QString>

#include <cstdlib>
#include <memory>
#include <optional>

#include <xcb/xcb.h>

namespace quorvane {

/// What xcb hands out to be freed.
struct Freed
{
    void operator()(void *memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc): xcb allocates so.
};
template <typename Reply> using XcbReply = std::unique_ptr<Reply, Freed>;

/// A connection to an X server, for one thread. xcb knows no time limit, so it is used inside withinLimit().
class X11Connection
{
  public:
    /// One monitor and where it lies on the root window.
    struct Monitor
    {
        QString name;
        QRect area;
    };

    /// display as in DISPLAY. Look at isUsable() before anything else.
    explicit X11Connection(const QByteArray &display);
    ~X11Connection();
    X11Connection(const X11Connection &) = delete;
    X11Connection &operator=(const X11Connection &) = delete;
    X11Connection(X11Connection &&) = delete;
    X11Connection &operator=(X11Connection &&) = delete;

    /// False where there is no server, it refused us, or it went away.
    [[nodiscard]] bool isUsable() const;

    [[nodiscard]] xcb_connection_t *get() const { return m_connection; }
    [[nodiscard]] const xcb_screen_t *screen() const { return m_screen; }

    /// The monitors as RandR 1.5 has them, in its order, without what lies outside the root window; where there is no
    /// such RandR, one named "screen" of the root window's size.
    [[nodiscard]] QList<Monitor> monitors() const;

    /// How the root window's pixels are laid out; nothing when its colours are not direct ones.
    [[nodiscard]] std::optional<X11PixelFormat> pixelFormat() const;

    /// The atom of that name, which is made where there is none; XCB_ATOM_NONE when the server went away.
    [[nodiscard]] xcb_atom_t atom(const char *name) const;

    /// Waits until the server has done everything sent so far. A Failure says which error it reported first, or that it
    /// went away.
    [[nodiscard]] Result<> finish() const;

  private:
    [[nodiscard]] std::optional<QList<Monitor>> randrMonitors() const;
    [[nodiscard]] QString atomName(xcb_atom_t atom) const;

    xcb_connection_t *m_connection;
    const xcb_screen_t *m_screen = nullptr;
};

} // namespace quorvane
