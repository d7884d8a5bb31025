#pragma once

#include "Platform/Desktops/DesktopPicture.h"

#include <QByteArray>
#include <QImage>
#include <QRect>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The background of LXQt on X11, drawn by its file manager: one picture over all screens together. So it gets one that
/// was put together from what each screen shall show, and is put together anew when the screens change.
///
/// The file manager does not keep how the picture is laid out, so after its next start the background may be another
/// until the picture is set again.
class DesktopPictureLxqt : public DesktopPicture
{
  public:
    /// display is what DISPLAY holds.
    DesktopPictureLxqt(QString busAddress, QByteArray display, QString reason,
                       std::chrono::milliseconds limit = kDesktopLimit);

    [[nodiscard]] QString name() const override { return u"lxqt"_s; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] QList<Screen> screens() override;

    /// All attached screens get the picture, whichever are named.
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;

    /// A picture of the areas' bounding rectangle, in which each area is filled with the source, on black.
    [[nodiscard]] static QImage composed(const QImage &source, const QList<QRect> &areas);

  private:
    QString m_busAddress;
    QByteArray m_display;
    QString m_reason;
    std::chrono::milliseconds m_limit;
};

} // namespace quorvane
