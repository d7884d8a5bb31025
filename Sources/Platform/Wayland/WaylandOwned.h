#pragma once

#include <memory>

#include <wayland-background.h>
#include <wayland-client.h>

namespace quorvane {

/// How each kind of Wayland object goes: by its own destructor, which may tell the compositor.
struct WaylandDestroyed
{
    void operator()(wl_buffer *proxy) const { wl_buffer_destroy(proxy); }
    void operator()(wl_callback *proxy) const { wl_callback_destroy(proxy); }
    void operator()(wl_compositor *proxy) const { wl_compositor_destroy(proxy); }
    void operator()(wl_output *proxy) const { wl_output_destroy(proxy); }
    void operator()(wl_region *proxy) const { wl_region_destroy(proxy); }
    void operator()(wl_registry *proxy) const { wl_registry_destroy(proxy); }
    void operator()(wl_shm *proxy) const { wl_shm_destroy(proxy); }
    void operator()(wl_shm_pool *proxy) const { wl_shm_pool_destroy(proxy); }
    void operator()(wl_surface *proxy) const { wl_surface_destroy(proxy); }
    void operator()(wp_viewport *proxy) const { wp_viewport_destroy(proxy); }
    void operator()(wp_viewporter *proxy) const { wp_viewporter_destroy(proxy); }
    void operator()(zwlr_layer_shell_v1 *proxy) const { zwlr_layer_shell_v1_destroy(proxy); }
    void operator()(zwlr_layer_surface_v1 *proxy) const { zwlr_layer_surface_v1_destroy(proxy); }
};
template <typename Proxy> using WaylandOwned = std::unique_ptr<Proxy, WaylandDestroyed>;

} // namespace quorvane
