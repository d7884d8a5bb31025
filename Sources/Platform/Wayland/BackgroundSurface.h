#pragma once

#include "Platform/Failure.h"
#include "Platform/Wayland/WaylandOutputs.h"

#include <QImage>
#include <QSize>

#include <vector>

namespace quorvane {

/// What the compositor must offer for a background.
struct BackgroundGlobals
{
    explicit BackgroundGlobals(const WaylandOutputs &outputs);

    /// The viewporter may be missing: then a picture on a screen of a broken scale factor is scaled once more.
    [[nodiscard]] bool areComplete() const { return compositor && memory && shell; }

    WaylandOwned<wl_compositor> compositor;
    WaylandOwned<wl_shm> memory;
    WaylandOwned<zwlr_layer_shell_v1> shell;
    WaylandOwned<wp_viewporter> viewporter;
};

/// The surface behind everything on one output. It takes no input and asks for no frames, so once drawn it costs
/// nothing here: the pixels are the compositor's alone.
class BackgroundSurface
{
  public:
    /// Asks for the surface; nothing is seen before show(). Both outlive it.
    BackgroundSurface(const BackgroundGlobals &globals, const WaylandOutput &output);
    BackgroundSurface(const BackgroundSurface &) = delete;
    BackgroundSurface &operator=(const BackgroundSurface &) = delete;
    BackgroundSurface(BackgroundSurface &&) = delete;
    BackgroundSurface &operator=(BackgroundSurface &&) = delete;
    ~BackgroundSurface();

    /// The compositor has told its size.
    [[nodiscard]] bool isReady() const { return !m_isClosed && !m_size.isEmpty(); }

    /// The compositor has taken it away, and it will never show anything again.
    [[nodiscard]] bool isClosed() const { return m_isClosed; }

    /// What is shown was made for the size and the scale that the output has now.
    [[nodiscard]] bool fits() const { return m_drawn == wanted(); }

    /// Replaces what is shown, in one step, by the picture, which fills it. Fails, and shows what it showed, where
    /// there is no memory for the pixels, in the system's words. It must be ready.
    [[nodiscard]] Result<> show(const QImage &picture);

  private:
    /// What a picture is made for.
    struct Shape
    {
        QSize pixels;
        QSize size; ///< In the compositor's coordinates.
        friend bool operator==(const Shape &, const Shape &) = default;
    };
    [[nodiscard]] Shape wanted() const;
    [[nodiscard]] Result<wl_buffer *> bufferOf(const QImage &picture);

    const BackgroundGlobals &m_globals;
    const WaylandOutput &m_output;
    /// Those that the compositor may still read. Mostly one; a compositor that copies gives it back at once.
    std::vector<WaylandOwned<wl_buffer>> m_buffers;
    WaylandOwned<wl_surface> m_surface;
    WaylandOwned<wp_viewport> m_viewport;
    WaylandOwned<zwlr_layer_surface_v1> m_layerSurface;
    QSize m_size;
    Shape m_drawn;
    bool m_isClosed = false;
};

} // namespace quorvane
