#pragma once

#include "ShellFixture.h"

#include "Support/Desktop/PrivateSway.h"
#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <cstdlib>

namespace quorvane {

using namespace Qt::StringLiterals;

inline const QString kOutput = u"HEADLESS-1"_s;

/// How many pixels of the area are far from the background in brightness, so that people see them.
inline int contrasting(const QImage &image, const QRect &area, const QColor &background)
{
    constexpr int kSeen = 60;
    int count = 0;
    const QRect seen = area & image.rect();
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
        for (int x = seen.left(); x <= seen.right(); ++x) {
            count += std::abs(qGray(image.pixel(x, y)) - qGray(background.rgb())) > kSeen ? 1 : 0;
        }
    }
    return count;
}

/// Whether so many pixels are a glyph of 22 x 22 points, and no panel that is only beginning to draw itself.
inline bool isGlyph(int pixels)
{
    constexpr int kFewest = 30;
    constexpr int kMost = 22 * 22;
    return pixels >= kFewest && pixels <= kMost;
}

/// Keeps the picture for people where QUORVANE_SCREENSHOTS names a folder.
inline void keep(const QImage &image, const QString &name)
{
    const QString folder = qEnvironmentVariable("QUORVANE_SCREENSHOTS");
    if (!folder.isEmpty()) {
        image.save(folder + '/'_L1 + name + u".png"_s);
    }
}

/// A sway with room for a bar, and a bus that sway's user and the test share.
class SwaySessionTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        const QString missing =
            firstMissing({u"sway"_s, u"swaybar"_s, u"swaymsg"_s, u"grim"_s, u"dbus-daemon"_s, u"setpriv"_s});
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        // The bar is started by the test, so that it can come late and go; sway starts "true" in its place.
        const QByteArray bar = QByteArray("bar {\nid panel\nswaybar_command true\nposition bottom\nheight 32\n"
                                          "tray_output *\nstatus_command -\ncolors {\nbackground ") +
                               barColor.name().toLatin1() + "\n}\n}\noutput * bg " + barColor.name().toLatin1() +
                               " solid_color\nfocus_on_window_activation focus\n";
        sway = std::make_unique<PrivateSway>(QList<QSize>{{640, 240}}, bar);
        ASSERT_TRUE(sway->isReady());
        environment = sway->clientEnvironment();
        const QString address = u"unix:path="_s + sway->runtimeFolder() + u"/bus"_s;
        const QString configuration = sway->runtimeFolder() + u"/bus.conf"_s;
        ASSERT_TRUE(
            putFile(configuration, "<busconfig><type>session</type><listen>" + address.toUtf8() +
                                       "</listen><policy context=\"default\"><allow user=\"*\"/>"
                                       "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/><allow own=\"*\"/>"
                                       "</policy></busconfig>"));
        QFile::setPermissions(configuration, QFile::ReadOwner | QFile::ReadOther);
        m_bus = std::make_unique<OwnedProgram>(
            u"dbus-daemon"_s, QStringList{u"--config-file="_s + configuration, u"--nofork"_s, u"--print-address=1"_s},
            environment, sway->runtimeFolder(), OwnedProgram::User::NotRoot);
        ASSERT_FALSE(m_bus->readLine().isEmpty()) << m_bus->errors().constData();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
    }

    [[nodiscard]] std::unique_ptr<OwnedProgram> startBar() const
    {
        return std::make_unique<OwnedProgram>(u"swaybar"_s,
                                              QStringList{u"-b"_s, u"panel"_s, u"-s"_s, sway->socketPath()},
                                              environment, sway->runtimeFolder(), OwnedProgram::User::NotRoot);
    }
    [[nodiscard]] std::unique_ptr<Application> startApplication(const QStringList &arguments = {u"--hidden"_s},
                                                                const QString &token = {}) const
    {
        QProcessEnvironment ours = environment;
        ours.insert(u"XDG_ACTIVATION_TOKEN"_s, token);
        ours.insert(u"HOME"_s, m_home.path());
        ours.insert(u"XDG_CONFIG_HOME"_s, m_home.path());
        ours.insert(u"QT_QPA_PLATFORM"_s, u"wayland"_s);
        ours.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
        ours.insert(u"TEST_WINDOWS"_s, QStringLiteral(TEST_WINDOWS));
        return std::make_unique<Application>(ours, arguments);
    }

    /// The right end of the bar, which is where the tray is.
    [[nodiscard]] int seenInTray() const
    {
        const QImage screen = sway->screenshot(kOutput);
        return contrasting(screen, QRect(screen.width() - 64, screen.height() - 32, 64, 32), barColor);
    }
    [[nodiscard]] bool showsIcon() const
    {
        return waitFor([this] { return isGlyph(seenInTray()); });
    }

    [[nodiscard]] QByteArray ask(const QStringList &arguments) const
    {
        return outputOf(u"swaymsg"_s, arguments, sway->clientEnvironment());
    }

    QColor barColor{0x20, 0x20, 0x20};
    std::unique_ptr<PrivateSway> sway;
    QProcessEnvironment environment;

  private:
    QTemporaryDir m_home;
    std::unique_ptr<OwnedProgram> m_bus;
};

} // namespace quorvane
