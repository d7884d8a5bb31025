#pragma once

#include "Platform/Desktops/DesktopPicture.h"

#include <utility>

namespace quorvane {

/// Where no way to the desktop exists: no screens, and words that say why.
class DesktopPictureUnimplemented : public DesktopPicture
{
  public:
    explicit DesktopPictureUnimplemented(QString reason)
        : m_reason(std::move(reason))
    {
    }

    [[nodiscard]] QString name() const override { return {}; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] QList<Screen> screens() override { return {}; }
    [[nodiscard]] Result<> setPicture(const QString & /*path*/, const QList<Screen> & /*screens*/) override
    {
        return Failure{m_reason};
    }

  private:
    QString m_reason;
};

} // namespace quorvane
