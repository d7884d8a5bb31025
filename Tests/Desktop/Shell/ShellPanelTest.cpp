// The icon in real panels: sway's bar, which reads the bus, and a tray of the old X11 kind, which embeds a window.
// Judged by the pixels of the screen.

#include "ShellFixture.h"

#include "Support/Desktop/PrivateSway.h"
#include "Support/Desktop/PrivateXServer.h"
#include "Support/Files.h"
#include "Support/WaitFor.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>

#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kOutput = u"HEADLESS-1"_s;

/// How many pixels of the area are far from the background in brightness, so that people see them.
int contrasting(const QImage &image, const QRect &area, const QColor &background)
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
bool isGlyph(int pixels)
{
    constexpr int kFewest = 30;
    constexpr int kMost = 22 * 22;
    return pixels >= kFewest && pixels <= kMost;
}

/// Keeps the picture for people where QUORVANE_SCREENSHOTS names a folder.
void keep(const QImage &image, const QString &name)
{
    const QString folder = qEnvironmentVariable("QUORVANE_SCREENSHOTS");
    if (!folder.isEmpty()) {
        image.save(folder + '/'_L1 + name + u".png"_s);
    }
}

} // namespace

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

class SwayBarTest : public SwaySessionTest, public testing::WithParamInterface<const char *>
{
  protected:
    void SetUp() override
    {
        barColor = QColor(GetParam());
        SwaySessionTest::SetUp();
    }
};

TEST_P(SwayBarTest, theIconComesLateAndSurvivesThePanelsCrash)
{
    const auto application = startApplication();
    ASSERT_TRUE(waitFor([this] { return seenInTray() == 0; }));
    auto bar = startBar();
    ASSERT_TRUE(showsIcon()) << bar->errors().constData() << application->errors().constData();
    keep(sway->screenshot(kOutput), u"swaybar-%1"_s.arg(QLatin1String(GetParam() + 1)));
    bar->signal(SIGKILL);
    ASSERT_TRUE(waitFor([this] { return seenInTray() == 0; }));
    bar = startBar();
    EXPECT_TRUE(showsIcon()) << bar->errors().constData();
    application->signal(SIGTERM);
    EXPECT_EQ(application->waitForEnd(), 0);
    EXPECT_TRUE(waitFor([this] { return seenInTray() == 0; }));
}

INSTANTIATE_TEST_SUITE_P(DarkAndLight, SwayBarTest, testing::Values("#202020", "#f5f5f5"));

namespace {

/// A token such as launchers get for what they start, asked for by the least that is a Wayland client.
QByteArray activationToken(const QString &socketPath)
{
    QLocalSocket socket;
    socket.connectToServer(socketPath);
    const auto word = [](quint32 value) { return QByteArray(reinterpret_cast<const char *>(&value), sizeof value); };
    const auto text = [&word](QByteArray bytes) {
        bytes.append('\0');
        const QByteArray length = word(static_cast<quint32>(bytes.size()));
        return length + bytes.leftJustified((bytes.size() + 3) / 4 * 4, '\0');
    };
    const auto request = [&](quint32 object, quint32 opcode, const QByteArray &arguments) {
        const auto size = static_cast<quint32>(8 + arguments.size());
        socket.write(word(object) + word(size << 16U | opcode) + arguments);
    };
    enum : quint32 { Display = 1, Registry, Activation, Token };
    QByteArray received;
    QByteArray token;
    const auto number = [&received](qsizetype at) {
        quint32 value = 0;
        std::memcpy(&value, received.constData() + at, sizeof value);
        return value;
    };
    const auto readEvents = [&] {
        received += socket.readAll();
        while (received.size() >= 8 && received.size() >= static_cast<qsizetype>(number(4) >> 16U)) {
            const quint32 sender = number(0);
            const auto size = static_cast<qsizetype>(number(4) >> 16U);
            if (sender == Registry && (number(4) & 0xffffU) == 0) {
                const QByteArray interface = received.mid(16, number(12) - 1);
                if (interface == "xdg_activation_v1") {
                    request(Registry, 0, word(number(8)) + text(interface) + word(1) + word(Activation));
                    request(Activation, 1, word(Token));
                    request(Token, 3, {});
                }
            } else if (sender == Token) {
                token = received.mid(12, number(8) - 1);
            }
            received.remove(0, size);
        }
        return !token.isEmpty();
    };
    request(Display, 1, word(Registry));
    return waitFor(readEvents) ? token : QByteArray();
}

} // namespace

TEST_F(SwaySessionTest, aSecondStartWithATokenGetsTheFocusForTheWindow)
{
    const auto first = startApplication({});
    ASSERT_TRUE(first->says("main opened"));
    const auto focused = [this] {
        const QJsonDocument tree = QJsonDocument::fromJson(ask({u"-rt"_s, u"get_tree"_s}));
        QList<QJsonObject> left{tree.object()};
        while (!left.isEmpty()) {
            const QJsonObject node = left.takeFirst();
            if (node.value("focused"_L1).toBool()) {
                return node.value("app_id"_L1).toString();
            }
            const QJsonArray children = node.value("nodes"_L1).toArray();
            for (const QJsonValue child : children) {
                left.append(child.toObject());
            }
        }
        return QString();
    };
    const QString ours = u"app.quorvane.Quorvane"_s;
    ASSERT_TRUE(waitFor([&] { return focused() == ours; }));
    (void)ask({u"workspace 2"_s});
    ASSERT_TRUE(waitFor([&] { return focused() != ours; }));
    // Without a token it stays where it is.
    EXPECT_EQ(startApplication({})->waitForEnd(), 0);
    EXPECT_NE(focused(), ours);
    const QByteArray token = activationToken(sway->runtimeFolder() + u"/wayland-1"_s);
    ASSERT_FALSE(token.isEmpty());
    EXPECT_EQ(startApplication({}, QString::fromLatin1(token))->waitForEnd(), 0);
    EXPECT_TRUE(waitFor([&] { return focused() == ours; }));
    EXPECT_EQ(first->count("main opened"), 1);
}

/// An X server with a tray of the old kind, and no panel on the bus.
class EmbeddedTrayTest : public ShellTest
{
  protected:
    void SetUp() override
    {
        const QString missing = firstMissing({u"Xvfb"_s, u"xrandr"_s, u"trayer"_s, u"xdotool"_s});
        if (!missing.isEmpty()) {
            GTEST_SKIP() << missing.toStdString() << " is not installed";
        }
        ShellTest::SetUp();
        if (IsSkipped() || HasFatalFailure()) {
            return;
        }
        x = std::make_unique<PrivateXServer>(kScreen);
        ASSERT_TRUE(x->isReady());
        session.environment().insert(u"DISPLAY"_s, QString::fromLatin1(x->display()));
        session.environment().insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    }

    [[nodiscard]] std::unique_ptr<OwnedProgram> startTray() const
    {
        return std::make_unique<OwnedProgram>(
            u"trayer"_s,
            QStringList{u"--edge"_s, u"bottom"_s, u"--align"_s, u"right"_s, u"--widthtype"_s, u"pixel"_s, u"--width"_s,
                        QString::number(kTray.width()), u"--height"_s, QString::number(kTray.height()), u"--tint"_s,
                        u"0x202020"_s, u"--transparent"_s, u"true"_s, u"--alpha"_s, u"0"_s},
            session.environment(), session.home().path());
    }
    /// Whether the tray holds a light glyph.
    [[nodiscard]] bool showsIcon() const { return isGlyph(contrasting(x->rootWindow(), kTray, Qt::black)); }

    void press(const QStringList &what) const { (void)outputOf(u"xdotool"_s, what, session.environment()); }

    static constexpr QSize kScreen{640, 480};
    static constexpr QRect kTray{640 - 48, 480 - 48, 48, 48};
    std::unique_ptr<PrivateXServer> x;
};

TEST_F(EmbeddedTrayTest, theIconAndItsMenuAreInATrayOfTheOldKindUntilAPanelComes)
{
    const auto application = startAndWait();
    auto tray = startTray();
    ASSERT_TRUE(waitFor([this] { return showsIcon(); }))
        << tray->errors().constData() << application->errors().constData();
    keep(x->rootWindow(), u"trayer"_s);
    {
        const Panel panel(session.connection());
        EXPECT_TRUE(waitFor([this] { return !showsIcon(); }));
    }
    ASSERT_TRUE(waitFor([this] { return showsIcon(); }));
    tray->signal(SIGKILL);
    ASSERT_TRUE(waitFor([this] { return !showsIcon(); }));
    tray = startTray();
    ASSERT_TRUE(waitFor([this] { return showsIcon(); })) << tray->errors().constData();
    const QString middleX = QString::number(kTray.right() - 16);
    const QString middleY = QString::number(kTray.bottom() - 24);
    press({u"mousemove"_s, middleX, middleY, u"click"_s, u"1"_s});
    EXPECT_TRUE(application->says("main opened"));
    // The icon's own window keeps nothing from quitting the way a window does.
    application->tell("Ctrl+Q");
    EXPECT_TRUE(application->says("main closed"));

    const QImage before = x->rootWindow();
    press({u"mousemove"_s, middleX, middleY, u"click"_s, u"3"_s});
    ASSERT_TRUE(waitFor([&] { return x->rootWindow() != before; }));
    keep(x->rootWindow(), u"trayer-menu"_s);
    press({u"key"_s, u"Up"_s, u"Return"_s}); // The last item, "Quit".
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

} // namespace quorvane
