#include "Platform/Wayland/LayerShellBackgrounds.h"

#include "Platform/Pictures/PictureFile.h"
#include "Platform/Threads/TimeLimit.h"

#include <QCoreApplication>

#include <algorithm>

namespace quorvane {

namespace {

struct Tr
{
    Q_DECLARE_TR_FUNCTIONS(LayerShellBackgrounds)
};

} // namespace

LayerShellBackgrounds::LayerShellBackgrounds(const QString &display, QDeadlineTimer deadline)
    : m_connection(display, deadline)
    , m_prepared(prepare(deadline))
{
}

Result<> LayerShellBackgrounds::prepare(QDeadlineTimer deadline)
{
    if (Result<> usable = m_connection.usable(); !usable) {
        return usable;
    }
    m_outputs = std::make_unique<WaylandOutputs>(m_connection);
    m_outputs->removed = [this](const WaylandOutput &output) { m_surfaces.erase(&output); };
    // The first answer names what there is, the second describes the outputs.
    for (int answers = 0; answers < 2; ++answers) {
        if (Result<> finished = m_connection.finish(deadline); !finished) {
            return finished;
        }
    }
    m_globals = std::make_unique<BackgroundGlobals>(*m_outputs);
    return m_globals->areComplete() ? kDone : Failure{Tr::tr("The compositor does not offer zwlr_layer_shell_v1")};
}

Result<> LayerShellBackgrounds::show(const QImage &picture, const QString &path, const QList<Screen> &screens,
                                     QDeadlineTimer deadline)
{
    if (Result<> finished = m_connection.finish(deadline); !finished) {
        return finished;
    }
    QList<BackgroundSurface *> surfaces;
    for (const Screen &screen : screens) {
        WaylandOutput *output = m_outputs->find(screen.name);
        if (output == nullptr) {
            return Failure{Tr::tr("The compositor has no screen \"%1\"").arg(screen.name)};
        }
        surfaces.append(&surfaceFor(*output));
    }
    // A dispatch may end surfaces whose outputs go, so they are looked at by way of the map.
    const auto isThere = [this](const BackgroundSurface *surface) {
        return std::any_of(m_surfaces.begin(), m_surfaces.end(), [surface](const auto &entry) {
            return entry.second.get() == surface && !surface->isClosed();
        });
    };
    const auto areAllThere = [&] { return std::all_of(surfaces.begin(), surfaces.end(), isThere); };
    const auto areAllReady = [&] {
        return std::all_of(surfaces.begin(), surfaces.end(), [](const auto *each) { return each->isReady(); });
    };
    while (areAllThere() && !areAllReady()) {
        if (Result<> dispatched = m_connection.dispatch(deadline); !dispatched) {
            return dispatched;
        }
    }
    if (areAllThere()) {
        for (BackgroundSurface *surface : surfaces) {
            if (const Result<> shown = surface->show(picture); !shown) {
                return Failure{Tr::tr("The compositor cannot be given the picture: %1").arg(shown.failure().words)};
            }
        }
        m_path = path;
        if (Result<> finished = m_connection.finish(deadline); !finished) {
            return finished;
        }
    }
    return areAllThere() ? kDone : Failure{Tr::tr("The compositor closed the background")};
}

Result<> LayerShellBackgrounds::follow(int wakeDescriptor)
{
    if (!m_path.isEmpty()) {
        // One change comes as several events; this waits for the last of them.
        if (isStale() && !m_connection.finish(QDeadlineTimer(kDesktopLimit))) {
            return m_connection.usable();
        }
        // Only now: the wait may have told of an output, and nothing else will be told of it.
        makeSurfaces();
        redrawStale();
    }
    (void)m_connection.dispatch(QDeadlineTimer(QDeadlineTimer::Forever), wakeDescriptor);
    return m_connection.usable();
}

BackgroundSurface &LayerShellBackgrounds::surfaceFor(WaylandOutput &output)
{
    std::unique_ptr<BackgroundSurface> &surface = m_surfaces[&output];
    if (!surface || surface->isClosed()) {
        surface = std::make_unique<BackgroundSurface>(*m_globals, output);
    }
    return *surface;
}

void LayerShellBackgrounds::makeSurfaces()
{
    for (const auto &[id, output] : m_outputs->all()) {
        // One that was closed is not asked for again by ourselves: the compositor had its reason.
        if (!output->mode.isEmpty() && !m_surfaces.contains(output.get())) {
            surfaceFor(*output);
        }
    }
}

bool LayerShellBackgrounds::isStale() const
{
    return std::any_of(m_surfaces.begin(), m_surfaces.end(),
                       [](const auto &entry) { return entry.second->isReady() && !entry.second->fits(); });
}

void LayerShellBackgrounds::redrawStale()
{
    if (!isStale()) {
        return;
    }
    const Result<PictureFile> file = readPicture(m_path);
    for (const auto &[output, surface] : m_surfaces) {
        if (surface->isReady() && !surface->fits() && (!file || !surface->show(file->image))) {
            m_path.clear(); // The file is gone: whoever follows the screens will say so when it sets a picture next.
            return;
        }
    }
}

} // namespace quorvane
