#pragma once

#include "RealDesktop.h"

#include "Support/Desktop/PrivateXorg.h"

namespace quorvane {

/// One on an X server.
class X11Desktop : public RealDesktop
{
  public:
    /// What is missing here; empty when it can run.
    [[nodiscard]] static QString missing() { return PrivateXorg::missingProgram(); }

    explicit X11Desktop(const Plan &plan);

    [[nodiscard]] bool isReady() const override;
    /// Some lay the screens out when they start, all in one size.
    [[nodiscard]] bool start() override;
    [[nodiscard]] QImage screenshot() override { return m_server->rootWindow(); }
    [[nodiscard]] QList<QRect> areas() override { return m_server->areas(); }
    [[nodiscard]] bool plugIn() override { return m_server->plugIn() && m_server->areas().size() == 3; }
    [[nodiscard]] QString platform() const override { return u"xcb"_s; }

  private:
    X11Desktop(const Plan &plan, std::unique_ptr<PrivateXorg> server);

    std::unique_ptr<PrivateXorg> m_server;
};

} // namespace quorvane
