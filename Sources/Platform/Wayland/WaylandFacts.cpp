#include "Platform/Wayland/WaylandFacts.h"

#include "Platform/Wayland/WaylandConnection.h"
#include "Platform/Wayland/WaylandOutputs.h"

namespace quorvane {

WaylandFacts waylandFacts(const QString &display, QDeadlineTimer deadline)
{
    WaylandFacts facts;
    WaylandConnection connection(display, deadline);
    if (!connection.usable()) {
        return facts;
    }
    const WaylandOutputs outputs(connection);
    // The first answer names the outputs, the second describes them.
    facts.isConnected = connection.finish(deadline) && connection.finish(deadline);
    if (facts.isConnected) {
        facts.hasLayerShell = outputs.offers("zwlr_layer_shell_v1");
        facts.screens = outputs.screens();
    }
    return facts;
}

} // namespace quorvane
