#pragma once

#include "Platform/Desktops/DesktopPicture.h"
#include "Platform/Desktops/SessionDesktops.h"

#include <functional>

namespace quorvane {

/// The background of the GTK desktops that keep it in GSettings: GNOME and its family, Budgie, Cinnamon and MATE. They
/// have one picture for all screens, so whichever screens are named, every one gets it, also those that come later.
class DesktopPictureGnome : public DesktopPicture
{
  public:
    /// busAddress is the session bus, where the program that draws must be; screens tells what there is.
    DesktopPictureGnome(QString name, SessionDesktop desktop, QString busAddress,
                        std::function<QList<Screen>()> screens, QString reason,
                        std::chrono::milliseconds limit = kDesktopLimit);

    [[nodiscard]] QString name() const override { return m_name; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] QList<Screen> screens() override { return m_screens(); }
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;

  private:
    QString m_name;
    SessionDesktop m_desktop;
    QString m_busAddress;
    std::function<QList<Screen>()> m_screens;
    QString m_reason;
    std::chrono::milliseconds m_limit;
};

} // namespace quorvane
