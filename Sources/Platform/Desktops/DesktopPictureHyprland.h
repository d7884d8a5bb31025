#pragma once

#include "Platform/Desktops/DesktopPictureLayerShell.h"
#include "Platform/Pictures/PictureHandover.h"

#include <QDeadlineTimer>
#include <QStringList>

namespace quorvane {

using namespace Qt::StringLiterals;

/// The background on Hyprland: through hyprpaper's socket where it runs and speaks the protocol that is known here, and
/// by surfaces of our own where not.
class DesktopPictureHyprland : public DesktopPicture
{
  public:
    /// sockets are the folders in which Hyprland of this session may keep its sockets, see socketFolders(). display is
    /// what WAYLAND_DISPLAY holds.
    DesktopPictureHyprland(QStringList socketFolders, const QString &display, QString reason, ProgramLife life,
                           std::chrono::milliseconds limit = kDesktopLimit);

    /// Where the Hyprland with the signature (HYPRLAND_INSTANCE_SIGNATURE) keeps them, by its version.
    [[nodiscard]] static QStringList socketFolders(const QString &signature);

    /// Whether Hyprland itself runs.
    [[nodiscard]] static bool answers(const QStringList &socketFolders,
                                      std::chrono::milliseconds limit = kDesktopLimit);

    [[nodiscard]] QString name() const override { return u"hyprland"_s; }
    [[nodiscard]] QString reason() const override { return m_reason; }
    [[nodiscard]] bool endsWithTheProgram() override;
    [[nodiscard]] QList<Screen> screens() override { return m_ownSurfaces.screens(); }
    [[nodiscard]] Result<> setPicture(const QString &path, const QList<Screen> &screens) override;

  private:
    [[nodiscard]] Result<> setByHyprpaper(const QString &path, const QStringList &loaded, const QList<Screen> &screens);
    /// hyprpaper's answer to the request. Fails where hyprpaper does not run, says nothing, or speaks another protocol.
    [[nodiscard]] Result<QString> ask(const QString &request, QDeadlineTimer deadline) const;
    /// The files that hyprpaper has read, as far as it tells. Fails as ask().
    [[nodiscard]] Result<QStringList> loadedFiles(QDeadlineTimer deadline) const;

    QStringList m_socketFolders;
    QString m_reason;
    std::chrono::milliseconds m_limit;
    DesktopPictureLayerShell m_ownSurfaces;
    PictureHandover m_handover;
};

} // namespace quorvane
