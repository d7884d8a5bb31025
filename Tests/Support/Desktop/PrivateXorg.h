#pragma once

#include "Support/Desktop/PrivateXServer.h"

#include <QList>

namespace quorvane {

/// A real X server without hardware whose outputs DUMMY0, DUMMY1, ... can be plugged in. Desktops need such a one: GTK
/// looks at outputs, and an Xvfb has just one, whatever monitors it is told of.
class PrivateXorg : public PrivateXServer
{
  public:
    /// What is missing here; empty when it can run.
    [[nodiscard]] static QString missingProgram();

    /// Comes up with one output of 1280 x 720 and one of 800 x 600 to its right.
    PrivateXorg();

    [[nodiscard]] bool isReady() const { return m_plugged == 2; }

    /// Where the outputs are now. A desktop may have laid them out as it likes.
    [[nodiscard]] QList<QRect> areas() const;

    /// Gives the outputs their sizes and places again.
    [[nodiscard]] bool layOut() const;

    /// Plugs in one more output of 800 x 600 to the right of the others; false when it fails.
    [[nodiscard]] bool plugIn();

  private:
    [[nodiscard]] bool runXrandr(const QStringList &arguments) const;

    int m_plugged = 0;
};

} // namespace quorvane
