#pragma once

#include "X11Desktop.h"

namespace quorvane {

/// What runs Plasma besides its compositor; the shell that paints is the last.
[[nodiscard]] QList<QStringList> plasmaCommands();

/// The major version of the Plasma that is installed: 6 or 5.
[[nodiscard]] QString plasmaVersion();

/// What a session of Plasma has in its environment.
void describePlasma(PrivateSession *session);

/// Waits until Plasma has a desktop for each of two screens: a shell that has its name may still have none to paint on.
[[nodiscard]] bool waitForPlasma(const PrivateSession &session);

/// KDE Plasma on an X server.
class PlasmaDesktop final : public X11Desktop
{
  public:
    [[nodiscard]] static QString missing();

    explicit PlasmaDesktop(const Plan &plan);

    /// Until Plasma has come so far that it has a desktop for each screen.
    [[nodiscard]] bool start() override;
};

} // namespace quorvane
