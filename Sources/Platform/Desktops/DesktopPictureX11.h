#pragma once

#include "Platform/Desktops/DesktopPicture.h"

#include <QByteArray>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The background of an X server without a desktop of its own (plain window managers): a pixmap behind the root window,
/// announced in _XROOTPMAP_ID and ESETROOT_PMAP_ID, which programs with see-through windows read. It stays when we end,
/// until the X server ends.
class DesktopPictureX11 : public DesktopPicture
{
  public:
    /// display is what DISPLAY holds.
    DesktopPictureX11(QByteArray display, QString reason, std::chrono::milliseconds limit = kDesktopLimit);

    [[nodiscard]] QString name() const override { return u"x11"_s; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] QList<Screen> screens() override;

    /// One pixmap holds all screens, so they change together or not at all; screens that are not named become black.
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;

  private:
    QByteArray m_display;
    QString m_reason;
    std::chrono::milliseconds m_limit;
};

} // namespace quorvane
