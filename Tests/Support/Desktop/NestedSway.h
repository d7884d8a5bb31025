#pragma once

#include "Support/Desktop/PrivateSway.h"

namespace quorvane {

/// A sway whose screens WL-1, WL-2, ... are windows of another sway, so that they can be unplugged: a sway without
/// hardware never loses a screen.
class NestedSway
{
  public:
    /// Why neither it nor a program of Qt's in it can run here; empty when both can.
    [[nodiscard]] static QString whyNot();

    /// outer outlives it.
    NestedSway(const PrivateSway &outer, int screens);

    /// Whether it came up with all its screens; look at this first.
    [[nodiscard]] bool isReady() const { return m_isReady; }

    /// What a program needs to be a client of the inner sway.
    [[nodiscard]] QProcessEnvironment clientEnvironment() const;

    /// Attaches one more screen; its name is the next number's.
    [[nodiscard]] bool plugIn() const;
    [[nodiscard]] bool unplug(const QString &screen) const;

    /// The pixels of one screen; null when there is no picture.
    [[nodiscard]] QImage screenshot(const QString &screen) const;

  private:
    QProcessEnvironment m_outer;
    std::unique_ptr<OwnedProgram> m_program;
    bool m_isReady = false;
};

} // namespace quorvane
