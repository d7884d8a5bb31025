#pragma once

#include "Support/Desktop/DisplayNumber.h"
#include "Support/Desktop/OwnedProgram.h"

#include <QImage>
#include <QList>
#include <QRect>
#include <QSize>
#include <QTemporaryDir>

#include <memory>

namespace quorvane {

/// A real X server without hardware, with one RandR monitor "screen" of the root window's size until others are added.
class PrivateXServer
{
  public:
    /// The first program that is missing here; empty when it can run.
    [[nodiscard]] static QString missingProgram();

    /// depth is 24 or 16; extraOptions are Xvfb's.
    explicit PrivateXServer(QSize root, int depth = 24, const QStringList &extraOptions = {});
    virtual ~PrivateXServer();
    PrivateXServer(const PrivateXServer &) = delete;
    PrivateXServer &operator=(const PrivateXServer &) = delete;
    PrivateXServer(PrivateXServer &&) = delete;
    PrivateXServer &operator=(PrivateXServer &&) = delete;

    /// Whether it came up; look at this first.
    [[nodiscard]] bool isReady() const { return !m_display.isEmpty(); }

    /// For DISPLAY.
    [[nodiscard]] QByteArray display() const { return m_display; }

    /// What a program needs to be a client of this server.
    [[nodiscard]] QProcessEnvironment clientEnvironment() const;

    /// Adds a monitor; the first one takes the place of the one that covers everything. False when xrandr fails.
    [[nodiscard]] bool addMonitor(const QString &name, const QRect &area);

    /// The pixels that the root window shows.
    [[nodiscard]] QImage rootWindow() const;

    /// The pixmap that a property of the root window names; 0 when there is none.
    [[nodiscard]] quint32 announcedPixmap(const char *property = "_XROOTPMAP_ID") const;

    /// The pixels of a pixmap; null when it does not exist.
    [[nodiscard]] QImage pixelsOf(quint32 pixmap) const;

    /// The windows that are shown and can be asked to close.
    [[nodiscard]] QList<quint32> windows() const;

    /// Asks the window to close, as a window manager does.
    void askToClose(quint32 window) const;

    [[nodiscard]] OwnedProgram &program() { return *m_program; }

  protected:
    /// Starts nothing yet.
    PrivateXServer() = default;

    /// The server's own folder.
    [[nodiscard]] QString folder() const { return m_folder.path(); }

    /// Starts a server that writes its number to standard output once it is ready.
    void start(const QString &program, const QStringList &options, OwnedProgram::User user);

  private:
    QTemporaryDir m_folder;
    std::unique_ptr<DisplayNumber> m_number; ///< Before the program, so that it is held until that has ended.
    std::unique_ptr<OwnedProgram> m_program;
    QByteArray m_display;
    bool m_hasMonitors = false;
};

} // namespace quorvane
