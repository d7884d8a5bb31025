#pragma once

#include "Platform/Desktops/DesktopPicture.h"
#include "Platform/Desktops/SessionDisplay.h"

#include <stop_token>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The background through org.freedesktop.portal.Wallpaper, for sandboxes and for desktops with no other way. One
/// picture for all screens, which the desktop copies; it may ask the user first. It tells whether it took the picture,
/// not whether it could draw it.
class DesktopPicturePortal : public DesktopPicture
{
  public:
    /// busAddress is the session bus's.
    DesktopPicturePortal(QString busAddress, SessionDisplay display, QString reason,
                         std::chrono::milliseconds limit = kDesktopLimit);

    /// Whether the session has a portal that sets wallpapers; may start it.
    [[nodiscard]] static bool answers(const QString &busAddress, std::chrono::milliseconds limit = kDesktopLimit);

    [[nodiscard]] QString name() const override { return u"portal"_s; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] QList<Screen> screens() override;
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;
    void stopAsking() override { m_stop.request_stop(); }

  private:
    QString m_busAddress;
    SessionDisplay m_display;
    QString m_reason;
    std::chrono::milliseconds m_limit;
    std::stop_source m_stop;
};

} // namespace quorvane
