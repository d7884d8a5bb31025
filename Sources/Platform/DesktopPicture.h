#pragma once

#include <QList>
#include <QSize>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>

namespace quorvane {

/// How long one call of a DesktopPicture waits for the desktop, in all.
inline constexpr std::chrono::milliseconds kDesktopLimit{5000};

/// One attached screen.
struct Screen
{
    QString name; ///< The name that the desktop gives it, for example "DP-1". Never empty.
    QSize pixels; ///< Its size in device pixels; 0 x 0 only where no desktop tells it (see DesktopPictureCommand).

    friend bool operator==(const Screen &, const Screen &) = default;
};

/// The seam to the desktop: which screens there are, and how a picture becomes their background.
///
/// Both operations wait for the desktop for up to kDesktopLimit in all, and setting a picture takes the time to decode
/// it besides, so they are called on a worker thread, one at a time. Neither needs a QGuiApplication.
/// Nothing is cached between calls: screens and desktops come and go.
class DesktopPicture
{
  public:
    DesktopPicture() = default;
    DesktopPicture(const DesktopPicture &) = delete;
    DesktopPicture &operator=(const DesktopPicture &) = delete;
    DesktopPicture(DesktopPicture &&) = delete;
    DesktopPicture &operator=(DesktopPicture &&) = delete;
    virtual ~DesktopPicture() = default;

    /// The name that QUORVANE_DESKTOP takes, for example "sway" or "x11"; empty where no desktop was found.
    [[nodiscard]] virtual QString name() const = 0;

    /// Why this way was chosen, one line for "quorvane status".
    [[nodiscard]] virtual QString reason() const = 0;

    /// The attached screens in the desktop's order; empty when there is none or the desktop does not answer.
    [[nodiscard]] virtual QList<Screen> screens() = 0;

    /// Makes the picture at path (absolute) the background of the screens, in their order, filling each, cropped
    /// around the centre, never stretched. Stops at the first screen that refuses and returns the desktop's own words
    /// (or ours where it has none); nothing when all succeeded.
    [[nodiscard]] virtual std::optional<QString> setPicture(const QString &path, const QList<Screen> &screens) = 0;
};

/// The desktop of this session, chosen by the environment (QUORVANE_DESKTOP, QUORVANE_WALLPAPER_COMMAND, then what
/// runs), at its first use and again whenever it is asked for the screens. Never null: without a desktop the object has
/// no screens.
[[nodiscard]] std::unique_ptr<DesktopPicture> makeDesktopPicture();

} // namespace quorvane
