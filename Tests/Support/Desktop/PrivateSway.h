#pragma once

#include "Support/Desktop/OwnedProgram.h"

#include <QImage>
#include <QList>
#include <QSize>
#include <QTemporaryDir>

#include <memory>

namespace quorvane {

/// A real sway without hardware, with outputs HEADLESS-1, HEADLESS-2, ... of the given sizes, in a runtime folder of
/// its own. Needs no display, no seat and no session bus.
class PrivateSway
{
  public:
    /// The first program that is missing here; empty when it can run.
    [[nodiscard]] static QString missingProgram();

    /// extraConfiguration is appended to sway's configuration file.
    explicit PrivateSway(const QList<QSize> &outputs, const QByteArray &extraConfiguration = {});
    ~PrivateSway();
    PrivateSway(const PrivateSway &) = delete;
    PrivateSway &operator=(const PrivateSway &) = delete;
    PrivateSway(PrivateSway &&) = delete;
    PrivateSway &operator=(PrivateSway &&) = delete;

    /// Whether it came up with all its outputs; look at this first.
    [[nodiscard]] bool isReady() const { return m_isReady; }

    /// For SWAYSOCK.
    [[nodiscard]] QString socketPath() const;

    /// Also sway's working folder: a file that a command created by accident lies here.
    [[nodiscard]] QString runtimeFolder() const { return m_folder.path(); }

    /// What a program needs to be a client of this sway (WAYLAND_DISPLAY, XDG_RUNTIME_DIR, SWAYSOCK).
    [[nodiscard]] QProcessEnvironment clientEnvironment() const;

    /// The pixels of one output; null when there is no picture.
    [[nodiscard]] QImage screenshot(const QString &output) const;

    [[nodiscard]] OwnedProgram &program() { return *m_program; }

  private:
    QTemporaryDir m_folder;
    std::unique_ptr<OwnedProgram> m_program;
    bool m_isReady = false;
};

} // namespace quorvane
