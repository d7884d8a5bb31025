#pragma once

#include "Platform/Pictures/Screen.h"
#include "Platform/Wayland/WaylandConnection.h"
#include "Platform/Wayland/WaylandOwned.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <memory>

namespace quorvane {

/// One screen as the compositor describes it.
struct WaylandOutput
{
    WaylandOwned<wl_output> proxy;
    QString name; ///< "DP-1"; a made-up one where the compositor's protocol is too old to tell.
    QSize mode;   ///< The current mode's pixels, before it is turned.
    int32_t transform = WL_OUTPUT_TRANSFORM_NORMAL;
    int32_t scale = 1;

    /// In device pixels, turned as the output is.
    [[nodiscard]] QSize pixels() const;
};

/// What a compositor offers: its globals, and its outputs as they come, change and go.
class WaylandOutputs
{
  public:
    /// Asks for everything; known after the connection's next two finish(). The connection outlives it.
    explicit WaylandOutputs(const WaylandConnection &connection);

    /// As of now; the keys grow with each output that comes.
    [[nodiscard]] const std::map<uint32_t, std::unique_ptr<WaylandOutput>> &all() const { return m_outputs; }

    /// The outputs that show something, in the order in which they came.
    [[nodiscard]] QList<Screen> screens() const;

    /// The output with that name, until it goes; null where there is none.
    [[nodiscard]] WaylandOutput *find(const QString &name) const;

    /// Whether there is a global of that interface, in any version.
    [[nodiscard]] bool offers(const QByteArray &interface) const { return m_globals.contains(interface); }

    /// Binds a global in the given version, which the compositor must have; null when it does not offer it.
    template <typename Proxy> [[nodiscard]] Proxy *bind(const wl_interface &interface, uint32_t version) const
    {
        const auto found = m_globals.find(QByteArray(interface.name));
        return found == m_globals.end() || found->second.version < version
                   ? nullptr
                   : static_cast<Proxy *>(wl_registry_bind(m_registry.get(), found->second.id, &interface, version));
    }

    std::function<void(WaylandOutput &)> removed; ///< Told before it goes.

  private:
    struct Global
    {
        uint32_t id;
        uint32_t version;
    };
    void add(uint32_t id, const QByteArray &interface, uint32_t version);
    void remove(uint32_t id);

    WaylandOwned<wl_registry> m_registry;
    std::map<QByteArray, Global> m_globals;
    std::map<uint32_t, std::unique_ptr<WaylandOutput>> m_outputs;
};

} // namespace quorvane
