#pragma once

#include "Support/OwnedProgram.h"

#include <QImage>
#include <QRect>
#include <QTemporaryDir>

#include <memory>

namespace quorvane {

/// A real X server whose screens are RandR outputs DUMMY0, DUMMY1, ... without hardware, as desktops expect them:
/// DUMMY0 has 1280x720 pixels, each one that is attached later 800x600 to the right of the one before.
class PluggableXServer
{
  public:
    /// The first program or module that is missing here; empty when it can run.
    [[nodiscard]] static QString missingProgram();

    explicit PluggableXServer(int screens);

    /// Whether it came up with all its screens; look at this first.
    [[nodiscard]] bool isReady() const { return m_isReady; }

    /// For DISPLAY.
    [[nodiscard]] QByteArray display() const { return m_display; }

    [[nodiscard]] bool plugIn();

    /// Where a screen lies in screenshot().
    [[nodiscard]] static QRect area(int screen);

    /// The whole display with everything on it.
    [[nodiscard]] QImage screenshot() const;

  private:
    [[nodiscard]] bool xrandr(const QStringList &arguments) const;

    QTemporaryDir m_folder;
    std::unique_ptr<OwnedProgram> m_program;
    QByteArray m_display;
    int m_screens = 1;
    bool m_isReady = false;
};

} // namespace quorvane
