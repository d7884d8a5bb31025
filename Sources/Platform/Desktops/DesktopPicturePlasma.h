#pragma once

#include "Platform/Desktops/DesktopPicture.h"
#include "Platform/Desktops/SessionDisplay.h"
#include "Platform/Pictures/PictureHandover.h"

namespace quorvane {

using namespace Qt::StringLiterals;

/// The background of KDE Plasma 5 and 6, by a script that plasmashell runs. It sets every screen at once, and reads
/// back what Plasma has stored for each; whether Plasma could draw it, it never tells.
class DesktopPicturePlasma : public DesktopPicture
{
  public:
    /// busAddress is the session bus's.
    DesktopPicturePlasma(QString busAddress, SessionDisplay display, QString reason,
                         std::chrono::milliseconds limit = kDesktopLimit);
    [[nodiscard]] QString name() const override { return u"plasma"_s; }
    [[nodiscard]] QString reason() const override { return m_reason; }

    /// Of the display server, because Plasma's scripts know no names.
    [[nodiscard]] QList<Screen> screens() override;

    /// Plasma makes a new screen's desktop a moment after the screen is there, so this waits a little until there are
    /// as many desktops as screens; the verdict is by the screens that Plasma itself counts.
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;

  private:
    QString m_busAddress;
    SessionDisplay m_display;
    QString m_reason;
    std::chrono::milliseconds m_limit;
    PictureHandover m_handover;
};

} // namespace quorvane
