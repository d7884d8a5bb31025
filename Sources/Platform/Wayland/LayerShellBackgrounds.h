#pragma once

#include "Platform/Failure.h"
#include "Platform/Wayland/BackgroundSurface.h"
#include "Platform/Wayland/WaylandConnection.h"
#include "Platform/Wayland/WaylandOutputs.h"

#include <QString>

#include <map>
#include <memory>

namespace quorvane {

/// The backgrounds of all outputs of one compositor, on a connection of their own. For one thread. They are there for
/// as long as the object is.
class LayerShellBackgrounds
{
  public:
    /// Look at usable() before anything else.
    LayerShellBackgrounds(const QString &display, QDeadlineTimer deadline);

    /// Fails where the compositor cannot be reached, does not offer what is needed, or went away.
    [[nodiscard]] Result<> usable() const { return m_prepared ? m_connection.usable() : m_prepared; }

    /// Shows the picture, which the file at path holds, on the screens. A compositor that does not answer
    /// at first is asked for nothing.
    [[nodiscard]] Result<> show(const QImage &picture, const QString &path, const QList<Screen> &screens,
                                QDeadlineTimer deadline);

    /// Sleeps until the compositor says something or wakeDescriptor is readable. Outputs that came or changed get the
    /// last picture, which is read again for it: none is kept. Fails once the connection is lost.
    [[nodiscard]] Result<> follow(int wakeDescriptor);

  private:
    [[nodiscard]] Result<> prepare(QDeadlineTimer deadline);
    BackgroundSurface &surfaceFor(WaylandOutput &output);
    void makeSurfaces();
    [[nodiscard]] bool isStale() const;
    void redrawStale();

    // Before what uses it, so that it goes last.
    WaylandConnection m_connection;
    std::unique_ptr<WaylandOutputs> m_outputs;
    std::unique_ptr<BackgroundGlobals> m_globals;
    std::map<const WaylandOutput *, std::unique_ptr<BackgroundSurface>> m_surfaces;
    QString m_path; ///< Of the last picture; empty before the first.
    Result<> m_prepared;
};

} // namespace quorvane
