#pragma once

#include "Platform/Desktops/DesktopPicture.h"

#include <QVariantMap>

#include <functional>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The background of XFCE, which has one for each monitor and workspace, in the settings daemon xfconf. All of them get
/// the picture: those of the named screens, and those of every monitor that was ever there.
class DesktopPictureXfce : public DesktopPicture
{
  public:
    DesktopPictureXfce(QString busAddress, std::function<QList<Screen>()> screens, QString reason,
                       std::chrono::milliseconds limit = kDesktopLimit);

    [[nodiscard]] QString name() const override { return u"xfce"_s; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] QList<Screen> screens() override { return m_screens(); }
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;

    /// What must be set so that path fills every screen, given everything that is set below "/backdrop" now. workspaces
    /// is how many the window manager has. Names change with XFCE's versions, so what is there counts besides what
    /// should be. A picture that is set already is written in another way, so that it is read anew.
    [[nodiscard]] static QVariantMap propertiesFor(const QString &path, const QList<Screen> &screens, int workspaces,
                                                   const QVariantMap &now);

  private:
    QString m_busAddress;
    std::function<QList<Screen>()> m_screens;
    QString m_reason;
    std::chrono::milliseconds m_limit;
};

} // namespace quorvane
