#include "Platform/Wayland/WaylandOutputs.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// The version that tells an output's name.
constexpr uint32_t kNamedOutputVersion = 4;

const wl_output_listener kOutputListener{
    .geometry =
        [](void *data, wl_output * /*output*/, int32_t /*x*/, int32_t /*y*/, int32_t /*width*/, int32_t /*height*/,
           int32_t /*subpixel*/, const char * /*make*/, const char * /*model*/, int32_t transform) {
            auto *output = static_cast<WaylandOutput *>(data);
            output->transform = transform;
        },
    .mode =
        [](void *data, wl_output * /*output*/, uint32_t flags, int32_t width, int32_t height, int32_t /*refresh*/) {
            if ((flags & WL_OUTPUT_MODE_CURRENT) != 0) {
                static_cast<WaylandOutput *>(data)->mode = QSize(width, height);
            }
        },
    .done = [](void * /*data*/, wl_output * /*output*/) {},
    .scale = [](void *data, wl_output * /*output*/,
                int32_t factor) { static_cast<WaylandOutput *>(data)->scale = factor; },
    .name = [](void *data, wl_output * /*output*/,
               const char *name) { static_cast<WaylandOutput *>(data)->name = QString::fromUtf8(name); },
    .description = [](void * /*data*/, wl_output * /*output*/, const char * /*description*/) {},
};

} // namespace

QSize WaylandOutput::pixels() const
{
    // The odd transforms are the quarter turns.
    return (transform & WL_OUTPUT_TRANSFORM_90) != 0 ? mode.transposed() : mode;
}

WaylandOutputs::WaylandOutputs(const WaylandConnection &connection)
    : m_registry(wl_display_get_registry(connection.get()))
{
    static const wl_registry_listener listener{
        .global = [](void *data, wl_registry * /*registry*/, uint32_t id, const char *interface,
                     uint32_t version) { static_cast<WaylandOutputs *>(data)->add(id, interface, version); },
        .global_remove = [](void *data, wl_registry * /*registry*/,
                            uint32_t id) { static_cast<WaylandOutputs *>(data)->remove(id); },
    };
    wl_registry_add_listener(m_registry.get(), &listener, this);
}

QList<Screen> WaylandOutputs::screens() const
{
    QList<Screen> screens;
    for (const auto &[id, output] : m_outputs) {
        if (!output->mode.isEmpty()) {
            screens.append({output->name, output->pixels()});
        }
    }
    return screens;
}

WaylandOutput *WaylandOutputs::find(const QString &name) const
{
    const auto found =
        std::find_if(m_outputs.begin(), m_outputs.end(), [&](const auto &entry) { return entry.second->name == name; });
    return found == m_outputs.end() ? nullptr : found->second.get();
}

void WaylandOutputs::add(uint32_t id, const QByteArray &interface, uint32_t version)
{
    m_globals.insert_or_assign(interface, Global{id, version});
    if (interface == wl_output_interface.name) {
        auto output = std::make_unique<WaylandOutput>();
        output->name = u"screen-%1"_s.arg(id);
        output->proxy.reset(static_cast<wl_output *>(
            wl_registry_bind(m_registry.get(), id, &wl_output_interface, std::min(version, kNamedOutputVersion))));
        wl_output_add_listener(output->proxy.get(), &kOutputListener, output.get());
        m_outputs.insert_or_assign(id, std::move(output));
    }
}

void WaylandOutputs::remove(uint32_t id)
{
    const auto found = m_outputs.find(id);
    if (found != m_outputs.end()) {
        if (removed) {
            removed(*found->second);
        }
        m_outputs.erase(found);
    }
}

} // namespace quorvane
