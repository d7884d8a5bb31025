#include "Platform/Wayland/BackgroundSurface.h"

#include "Platform/Files/SystemCall.h"
#include "Platform/Pictures/FillCrop.h"

#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace quorvane {

namespace {

// The least versions with what is used here.
constexpr uint32_t kCompositorVersion = 4; // Damage in the buffer's own pixels.
constexpr uint32_t kFirstVersion = 1;

constexpr uint32_t kAllEdges = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                               ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
/// Below panels too, instead of beside them.
constexpr int32_t kWholeOutput = -1;

/// Makes file a file in memory that holds the picture's rows, for the compositor. It can never be made shorter, so the
/// compositor may rely on it.
Result<> putIntoMemory(const QImage &picture, FileDescriptor *file)
{
    *file = FileDescriptor(::memfd_create("wallpaper", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!file->isOpen()) {
        return Failure{systemWords(errno)};
    }
    const auto size = static_cast<std::size_t>(picture.sizeInBytes());
    // Reserved at once: running out of memory while writing would be the end of the program.
    if (const int error = ::posix_fallocate(file->get(), 0, static_cast<off_t>(size)); error != 0) {
        return Failure{systemWords(error)};
    }
    void *memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file->get(), 0);
    if (memory == MAP_FAILED) {
        return Failure{systemWords(errno)};
    }
    std::memcpy(memory, picture.constBits(), size);
    ::munmap(memory, size);
    ::fcntl(file->get(), F_ADD_SEALS, F_SEAL_SHRINK);
    return kDone;
}

} // namespace

BackgroundGlobals::BackgroundGlobals(const WaylandOutputs &outputs)
    : compositor(outputs.bind<wl_compositor>(wl_compositor_interface, kCompositorVersion))
    , memory(outputs.bind<wl_shm>(wl_shm_interface, kFirstVersion))
    , shell(outputs.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, kFirstVersion))
    , viewporter(outputs.bind<wp_viewporter>(wp_viewporter_interface, kFirstVersion))
{
}

BackgroundSurface::BackgroundSurface(const BackgroundGlobals &globals, const WaylandOutput &output)
    : m_globals(globals)
    , m_output(output)
    , m_surface(wl_compositor_create_surface(globals.compositor.get()))
    , m_viewport(globals.viewporter ? wp_viewporter_get_viewport(globals.viewporter.get(), m_surface.get()) : nullptr)
    , m_layerSurface(zwlr_layer_shell_v1_get_layer_surface(globals.shell.get(), m_surface.get(), output.proxy.get(),
                                                           ZWLR_LAYER_SHELL_V1_LAYER_BACKGROUND, "wallpaper"))
{
    static const zwlr_layer_surface_v1_listener listener{
        .configure =
            [](void *data, zwlr_layer_surface_v1 *layerSurface, uint32_t serial, uint32_t width, uint32_t height) {
                zwlr_layer_surface_v1_ack_configure(layerSurface, serial);
                static_cast<BackgroundSurface *>(data)->m_size =
                    QSize(static_cast<int>(width), static_cast<int>(height));
            },
        .closed =
            [](void *data, zwlr_layer_surface_v1 * /*layerSurface*/) {
                static_cast<BackgroundSurface *>(data)->m_isClosed = true;
            },
    };
    zwlr_layer_surface_v1_add_listener(m_layerSurface.get(), &listener, this);
    zwlr_layer_surface_v1_set_anchor(m_layerSurface.get(), kAllEdges);
    zwlr_layer_surface_v1_set_exclusive_zone(m_layerSurface.get(), kWholeOutput);
    const WaylandOwned<wl_region> nothing(wl_compositor_create_region(globals.compositor.get()));
    wl_surface_set_input_region(m_surface.get(), nothing.get());
    wl_surface_commit(m_surface.get()); // Without a buffer: asks for the size.
}

BackgroundSurface::~BackgroundSurface() = default;

BackgroundSurface::Shape BackgroundSurface::wanted() const
{
    return {m_viewport ? m_output.pixels() : m_size * m_output.scale, m_size};
}

Result<> BackgroundSurface::show(const QImage &picture)
{
    const Shape shape = wanted();
    const QImage filled = filledPicture(picture, shape.pixels).convertToFormat(QImage::Format_RGB32);
    const Result<wl_buffer *> buffer = filled.isNull() ? Failure{systemWords(ENOMEM)} : bufferOf(filled);
    if (!buffer) {
        return buffer.failure();
    }
    wl_surface *surface = m_surface.get();
    if (m_viewport) {
        wp_viewport_set_destination(m_viewport.get(), shape.size.width(), shape.size.height());
    } else {
        wl_surface_set_buffer_scale(surface, m_output.scale);
    }
    // Nothing shines through, so the compositor need not draw what lies behind.
    const WaylandOwned<wl_region> whole(wl_compositor_create_region(m_globals.compositor.get()));
    wl_region_add(whole.get(), 0, 0, shape.size.width(), shape.size.height());
    wl_surface_set_opaque_region(surface, whole.get());
    wl_surface_attach(surface, *buffer, 0, 0);
    wl_surface_damage_buffer(surface, 0, 0, shape.pixels.width(), shape.pixels.height());
    wl_surface_commit(surface);
    m_drawn = shape;
    return kDone;
}

Result<wl_buffer *> BackgroundSurface::bufferOf(const QImage &picture)
{
    FileDescriptor file; // The library sends a duplicate.
    if (const Result<> put = putIntoMemory(picture, &file); !put) {
        return put.failure();
    }
    const WaylandOwned<wl_shm_pool> pool(
        wl_shm_create_pool(m_globals.memory.get(), file.get(), static_cast<int32_t>(picture.sizeInBytes())));
    wl_buffer *buffer = wl_shm_pool_create_buffer(pool.get(), 0, picture.width(), picture.height(),
                                                  static_cast<int32_t>(picture.bytesPerLine()), WL_SHM_FORMAT_XRGB8888);
    // Once it is given back, destroying it changes nothing on the screen and frees the memory.
    static const wl_buffer_listener listener{.release = [](void *data, wl_buffer *released) {
        auto &buffers = static_cast<BackgroundSurface *>(data)->m_buffers;
        std::erase_if(buffers, [released](const auto &each) { return each.get() == released; });
    }};
    wl_buffer_add_listener(buffer, &listener, this);
    m_buffers.emplace_back(buffer);
    return buffer;
}

} // namespace quorvane
