#pragma once

#include "RealDesktop.h"

namespace quorvane {

/// GNOME on Wayland without hardware. It has two screens; the second is off until it is plugged in, because a virtual
/// screen cannot be added to a shell that runs. Its own interfaces for testing take the screenshots.
class GnomeDesktop final : public RealDesktop
{
  public:
    /// It needs nothing but its programs.
    [[nodiscard]] static QString missing() { return {}; }

    explicit GnomeDesktop(const Plan &plan);

    [[nodiscard]] bool start() override;
    [[nodiscard]] QImage screenshot() override;
    [[nodiscard]] QList<QRect> areas() override;
    /// Takes the second screen away and brings it back, as somebody does who unplugs a cable.
    [[nodiscard]] bool plugIn() override;
    [[nodiscard]] QString platform() const override { return u"wayland"_s; }

  private:
    /// What a line of the shell's own language gives, as text.
    [[nodiscard]] QString evaluate(const QString &line);
    [[nodiscard]] bool arrange(const QString &screens);
};

} // namespace quorvane
