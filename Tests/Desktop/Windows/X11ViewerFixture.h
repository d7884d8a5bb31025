#pragma once

#include "WindowFixture.h"

namespace quorvane {

using namespace Qt::StringLiterals;

/// With what places and stacks the windows.
class X11ViewerTest : public X11WindowTest
{
  protected:
    void SetUp() override
    {
        const QString program = firstMissing({u"xfwm4"_s, u"xprop"_s, u"feh"_s});
        if (!program.isEmpty()) {
            GTEST_SKIP() << program.toStdString() << " is not installed";
        }
        X11WindowTest::SetUp();
    }
    void prepareDisplay() override
    {
        const QString folder = session.home().path();
        manager.emplace(u"xfwm4"_s, QStringList{u"--compositor=off"_s}, session.environment(), folder);
        ASSERT_TRUE(waitFor([&] {
            return outputOf(u"xprop"_s, {u"-root"_s, u"_NET_SUPPORTED"_s}, server->clientEnvironment())
                .contains("_NET_WM_STATE_FULLSCREEN");
        })) << manager->errors().constData();
        // Another window, which takes the corner of the screen.
        QImage green(200, 200, QImage::Format_RGB32);
        green.fill(Qt::green);
        const QString file = folder + u"/green.png"_s;
        ASSERT_TRUE(green.save(file));
        stranger.emplace(u"feh"_s, QStringList{u"-x"_s, u"-g"_s, u"200x200+0+0"_s, file}, session.environment(),
                         folder);
        ASSERT_TRUE(waitFor([&] { return isStrangerSeen(); })) << stranger->errors().constData();
    }
    [[nodiscard]] bool isStrangerSeen() const { return server->rootWindow().pixelColor(20, 20) == QColor(Qt::green); }

    /// Opens the preview and clicks its button, once it has come to its place beside those that depend on the picture.
    void openViewer()
    {
        openPreview();
        ASSERT_TRUE(comes(kButton, u"Upscale to 4K"_s));
        click(kButton, u"Full Screen"_s);
        // The picture is square, so it leaves the sides of the screen black.
        EXPECT_TRUE(waitFor([&] {
            const QImage screen = server->rootWindow();
            return screen.pixelColor(600, 5) == QColor(Qt::red) && screen.pixelColor(600, 795) == QColor(Qt::red) &&
                   screen.pixelColor(20, 20) == QColor(Qt::black) && screen.pixelColor(1198, 798) == QColor(Qt::black);
        }));
    }
    /// The viewer is gone, and the keyboard is the window's again: the next Escape is for its preview.
    void expectWindowBack()
    {
        EXPECT_TRUE(waitFor([&] { return isStrangerSeen(); }));
        EXPECT_TRUE(waitFor([&] { return activeTitle() == "Quorvane"; })) << activeTitle().constData();
        EXPECT_TRUE(comes(kButton, u"Full Screen"_s));
        act({u"key"_s, u"Escape"_s});
        EXPECT_TRUE(waitFor([&] { return !tree->find(kButton, u"Full Screen"_s); }));
    }
    [[nodiscard]] QByteArray activeTitle() const
    {
        return outputOf(u"xdotool"_s, {u"getactivewindow"_s, u"getwindowname"_s}, server->clientEnvironment())
            .trimmed();
    }
    /// Whether the pointer's picture has anything to see. The libraries are there wherever xfwm4 is.
    [[nodiscard]] bool isPointerSeen() const
    {
        const QString script = uR"(
from ctypes import CDLL, POINTER, Structure, c_char_p, c_short, c_ulong, c_ushort, c_void_p
class Picture(Structure):
    _fields_ = [("x", c_short), ("y", c_short), ("width", c_ushort), ("height", c_ushort),
                ("left", c_ushort), ("top", c_ushort), ("serial", c_ulong), ("pixels", POINTER(c_ulong))]
x11, fixes = CDLL("libX11.so.6"), CDLL("libXfixes.so.3")
x11.XOpenDisplay.restype = c_void_p
fixes.XFixesGetCursorImage.restype = POINTER(Picture)
fixes.XFixesGetCursorImage.argtypes = [c_void_p]
display = x11.XOpenDisplay(c_char_p(None))
picture = fixes.XFixesGetCursorImage(display).contents
print(any(picture.pixels[i] for i in range(picture.width * picture.height)))
)"_s;
        const QByteArray answer = outputOf(u"python3"_s, {u"-c"_s, script}, server->clientEnvironment()).trimmed();
        EXPECT_TRUE(answer == "True" || answer == "False") << answer.constData();
        return answer == "True";
    }

    std::optional<OwnedProgram> manager;
    std::optional<OwnedProgram> stranger;
};

} // namespace quorvane
