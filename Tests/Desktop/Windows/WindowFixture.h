#pragma once

#include "AccessibleTree.h"
#include "Support/Desktop/LoginSession.h"

#include "App/Control/ControlCalls.h"
#include "Storage/ImageStore.h"
#include "Support/Desktop/OwnedProgram.h"
#include "Support/Desktop/PrivateXServer.h"
#include "Support/Results.h"
#include "Support/WaitFor.h"

#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace quorvane {

using namespace Qt::StringLiterals;

/// What AT-SPI calls a button.
inline const QString kButton = u"push button"_s;

/// The program's own windows on real window systems: read as a screen reader reads them, and clicked and typed at
/// through the window system.
class WindowTest : public testing::Test
{
  protected:
    /// What is missing here for a test with those programs; empty when it can run.
    [[nodiscard]] static QString missing(const QStringList &programs);

    /// The program with its window, as a client of a display.
    void start(const QProcessEnvironment &display, const char *platform);

    /// What is to be there before the program, in the session's environment.
    virtual void prepareDisplay() {}

    /// Waits for the element.
    [[nodiscard]] bool comes(const QString &role, const QString &name);

    /// The button whose name fits, once it shows.
    [[nodiscard]] std::optional<AccessibleElement> button(const std::function<bool(const QString &)> &fits);
    void press(const std::function<bool(const QString &)> &fits);
    /// Presses the element of that role and name, once it shows.
    void press(const char *role, const char *name);
    /// Waits until the picker says that this is chosen.
    [[nodiscard]] bool isChosen(const char *picker, const char *choice);
    [[nodiscard]] bool isEnabled(const QString &name);
    /// Opens the album, and the picture in it.
    void openPreview();

    void openSettings();

    static void putPicture(const QString &prompt);

    LoginSession session;
    std::optional<OwnedProgram> accessibility;
    std::optional<AccessibleTree> tree;
    std::optional<OwnedProgram> program;
};

/// The same on an X server.
class X11WindowTest : public WindowTest
{
  protected:
    void SetUp() override;

    virtual void startServer();

    /// What xdotool does with these arguments; it must end well.
    void act(const QStringList &arguments) const;
    void click(const QString &role, const QString &name);

    std::unique_ptr<PrivateXServer> server;
};

} // namespace quorvane
