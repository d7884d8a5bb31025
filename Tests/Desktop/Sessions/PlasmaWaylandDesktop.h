#pragma once

#include "RealDesktop.h"

#include "Platform/Pictures/Screen.h"
#include "Support/Desktop/PrivateSway.h"

namespace quorvane {

/// KDE Plasma on Wayland. Its compositor draws its two screens as windows of another one, side by side. None can be
/// added while it runs, so its second screen is taken away and comes back.
class PlasmaWaylandDesktop final : public RealDesktop
{
  public:
    [[nodiscard]] static QString missing();

    explicit PlasmaWaylandDesktop(const Plan &plan);

    [[nodiscard]] bool isReady() const override { return m_sway.isReady() && RealDesktop::isReady(); }
    [[nodiscard]] bool start() override;
    [[nodiscard]] QImage screenshot() override { return m_sway.screenshot(u"HEADLESS-1"_s); }
    [[nodiscard]] QList<QRect> areas() override;
    [[nodiscard]] bool plugIn() override;
    [[nodiscard]] QString platform() const override { return u"wayland"_s; }

  private:
    [[nodiscard]] bool startCompositor();
    [[nodiscard]] bool arrangeWindows() const;
    [[nodiscard]] QList<Screen> screens() const;
    [[nodiscard]] bool tellSway(const QString &command) const;

    PrivateSway m_sway;
};

} // namespace quorvane
