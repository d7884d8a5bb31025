// The program's own windows on real window systems: read as a screen reader reads them, and clicked and typed at
// through the window system.

#include "AccessibleTree.h"
#include "Desktop/Keyring/KeyringSession.h"

#include "App/Control/ControlCalls.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Support/OwnedProgram.h"
#include "Support/PrivateSway.h"
#include "Support/PrivateXServer.h"
#include "Support/PrivateXorg.h"
#include "Support/WaitFor.h"

#include <QBuffer>
#include <QDBusConnectionInterface>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace quorvane {

namespace {

const QString kButton = QStringLiteral("push button");

/// Whether a window of the program has the keyboard, as sway has it.
bool isFocused(const QJsonObject &node)
{
    if (node[QLatin1String("focused")].toBool() &&
        node[QLatin1String("app_id")].toString() == QLatin1String("app.quorvane.Quorvane")) {
        return true;
    }
    for (const char *kind : {"nodes", "floating_nodes"}) {
        for (const QJsonValue &child : node[QLatin1String(kind)].toArray()) {
            if (isFocused(child.toObject())) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

class WindowTest : public testing::Test
{
  protected:
    /// What is missing here for a test with those programs; empty when it can run.
    [[nodiscard]] static QString missing(const QStringList &programs)
    {
        if (AccessibleTree::launcher().isEmpty()) {
            return QStringLiteral("at-spi2-core is not installed");
        }
        const QString bus = whyNoBus();
        const QString program = firstMissing(programs);
        return !bus.isEmpty() ? bus : program.isEmpty() ? QString() : program + QStringLiteral(" is not installed");
    }

    /// The program with its window, as a client of a display.
    void start(const QProcessEnvironment &display, const char *platform)
    {
        ASSERT_TRUE(session.startBus());
        QProcessEnvironment &environment = session.environment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "SWAYSOCK"}) {
            if (display.contains(QLatin1String(name))) {
                environment.insert(QLatin1String(name), display.value(QLatin1String(name)));
            }
        }
        if (display.contains(QStringLiteral("WAYLAND_DISPLAY"))) {
            // A full path, because the session has a run-time folder of its own.
            environment.insert(QStringLiteral("WAYLAND_DISPLAY"), display.value(QStringLiteral("XDG_RUNTIME_DIR")) +
                                                                      QLatin1Char('/') +
                                                                      display.value(QStringLiteral("WAYLAND_DISPLAY")));
        }
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QLatin1String(platform));
        environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
        environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
        environment.insert(QStringLiteral("QUORVANE_WALLPAPER_COMMAND"), QStringLiteral("/bin/true"));
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
        const QString folder = session.home().path();
        accessibility.emplace(AccessibleTree::launcher(), QStringList{QStringLiteral("--launch-immediately")},
                              environment, folder);
        tree.emplace(session.connection());
        ASSERT_TRUE(waitFor([&] {
            return session.connection().interface()->isServiceRegistered(QStringLiteral("org.a11y.Bus")).value();
        }));
        ASSERT_NO_FATAL_FAILURE(prepareDisplay());
        program.emplace(QStringLiteral(QUORVANE_PROGRAM), QStringList(), environment, folder);
        ASSERT_TRUE(comes(kButton, QStringLiteral("Generate & Set Wallpaper"))) << program->errors().constData();
    }

    /// What is to be there before the program, in the session's environment.
    virtual void prepareDisplay() {}

    /// Waits for the element.
    [[nodiscard]] bool comes(const QString &role, const QString &name)
    {
        return waitFor([&] { return tree->find(role, name).has_value(); });
    }

    /// The button whose name fits, once it shows.
    [[nodiscard]] std::optional<AccessibleElement> button(const std::function<bool(const QString &)> &fits)
    {
        std::optional<AccessibleElement> found;
        const bool isFound = waitFor([&] {
            for (const AccessibleElement &each : tree->elements()) {
                if (each.role == kButton && each.has(AccessibleElement::Showing) && fits(each.name)) {
                    found = each;
                }
            }
            return found.has_value();
        });
        EXPECT_TRUE(isFound);
        return found;
    }
    void press(const std::function<bool(const QString &)> &fits)
    {
        const auto found = button(fits);
        ASSERT_TRUE(found && tree->press(*found));
    }
    /// Presses the element of that role and name, once it shows.
    void press(const char *role, const char *name)
    {
        ASSERT_TRUE(comes(QLatin1String(role), QLatin1String(name))) << name;
        EXPECT_TRUE(tree->press(*tree->find(QLatin1String(role), QLatin1String(name)))) << name;
    }
    /// Waits until the picker says that this is chosen.
    [[nodiscard]] bool isChosen(const char *picker, const char *choice)
    {
        return waitFor([&] {
            const auto found = tree->find(QStringLiteral("combo box"), QLatin1String(picker));
            return found && found->description == QLatin1String(choice);
        });
    }
    [[nodiscard]] bool isEnabled(const QString &name)
    {
        const auto found = tree->find(kButton, name);
        return found && found->has(AccessibleElement::Enabled);
    }
    /// Opens the album, and the picture in it.
    void openPreview()
    {
        press([](const QString &name) { return name == QLatin1String("a lake, 1 picture"); });
        // The tile of the picture is the one that is named after its prompt and its date.
        press([](const QString &name) {
            return name.startsWith(QLatin1String("a lake, ")) && name != QLatin1String("a lake, 1 picture");
        });
    }

    void openSettings()
    {
        QDBusMessage open = QDBusMessage::createMethodCall(Control::busName(), Control::objectPath(),
                                                           QStringLiteral("org.freedesktop.Application"),
                                                           QStringLiteral("ActivateAction"));
        open.setArguments({QStringLiteral("settings"), QVariantList(), QVariantMap()});
        EXPECT_EQ(session.connection().call(open).type(), QDBusMessage::ReplyMessage);
        ASSERT_TRUE(comes(QStringLiteral("text"), QStringLiteral("Gemini API Key")));
    }

    static void putPicture(const QString &prompt)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImage image(400, 400, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(&buffer, "PNG"));
        ImageStore::savePrompt(prompt, ImageStore::saveImage(QStringLiteral("one.png"), bytes).value_or(QString()));
    }

    KeyringSession session;
    std::optional<OwnedProgram> accessibility;
    std::optional<AccessibleTree> tree;
    std::optional<OwnedProgram> program;
};

class X11WindowTest : public WindowTest
{
  protected:
    void SetUp() override
    {
        const QString reason = missing({QStringLiteral("Xvfb"), QStringLiteral("xdotool")});
        if (!reason.isEmpty()) {
            GTEST_SKIP() << reason.toStdString();
        }
        ASSERT_NO_FATAL_FAILURE(startServer());
        putPicture(QStringLiteral("a lake"));
    }

    virtual void startServer()
    {
        server = std::make_unique<PrivateXServer>(QSize(1200, 800));
        ASSERT_TRUE(server->isReady());
    }

    /// What xdotool does with these arguments; it must end well.
    void act(const QStringList &arguments) const
    {
        EXPECT_FALSE(outputOf(QStringLiteral("xdotool"), arguments, server->clientEnvironment()).isNull())
            << arguments.join(QLatin1Char(' ')).toStdString();
    }
    void click(const QString &role, const QString &name)
    {
        ASSERT_TRUE(comes(role, name)) << name.toStdString();
        const QPoint middle = tree->areaOf(*tree->find(role, name)).center();
        act({QStringLiteral("mousemove"), QString::number(middle.x()), QString::number(middle.y()),
             QStringLiteral("click"), QStringLiteral("1")});
    }

    std::unique_ptr<PrivateXServer> server;
};

TEST_F(X11WindowTest, aScreenReaderFindsTheControlsByRoleNameAndState)
{
    start(server->clientEnvironment(), "xcb");
    for (const auto &[role, name] : {std::pair{"text", "Prompt"},
                                     {"check box", "4K resolution"},
                                     {"check box", "NSFW"},
                                     {"check box", "Auto-generate"},
                                     {"label", "Missing Gemini API key"},
                                     {"label", "Open Settings (⌘,)"},
                                     {"label", "Gemini"},
                                     {"push button", "a lake, 1 picture"}}) {
        EXPECT_TRUE(comes(QLatin1String(role), QString::fromUtf8(name))) << role << ' ' << name;
    }
    const auto prompt = tree->find(QStringLiteral("text"), QStringLiteral("Prompt"));
    ASSERT_TRUE(prompt.has_value());
    EXPECT_TRUE(prompt->has(AccessibleElement::Focusable) && prompt->has(AccessibleElement::Editable));
    // Whatever can be used has a name.
    for (const AccessibleElement &each : tree->elements()) {
        const bool isControl = each.role == kButton || each.role == QLatin1String("check box") ||
                               each.role == QLatin1String("text") || each.role == QLatin1String("combo box");
        EXPECT_FALSE(isControl && each.name.isEmpty()) << each.role.toStdString() << ' ' << each.path.toStdString();
    }
}

TEST_F(X11WindowTest, aStoredKeyIsToldToNobody)
{
    Keychain::save(QStringLiteral("SECRET-KEY"), QStringLiteral("gemini"));
    start(server->clientEnvironment(), "xcb");
    openSettings();
    EXPECT_TRUE(comes(QStringLiteral("text"), QStringLiteral("OpenAI API Key")));
    EXPECT_TRUE(comes(kButton, QStringLiteral("Update")));
    for (const AccessibleElement &each : tree->elements()) {
        EXPECT_FALSE((each.name + each.text + each.description).contains(QLatin1String("SECRET-KEY")))
            << each.role.toStdString();
    }
}

TEST_F(X11WindowTest, thePointerAndTheKeyboardReachTheControls)
{
    start(server->clientEnvironment(), "xcb");
    click(QStringLiteral("text"), QStringLiteral("Prompt"));
    act({QStringLiteral("type"), QStringLiteral("a quiet hill")});
    EXPECT_TRUE(waitFor([&] {
        const auto prompt = tree->find(QStringLiteral("text"), QStringLiteral("Prompt"));
        return prompt && prompt->text == QLatin1String("a quiet hill");
    }));
    click(QStringLiteral("check box"), QStringLiteral("4K resolution"));
    EXPECT_TRUE(waitFor([&] {
        const auto toggle = tree->find(QStringLiteral("check box"), QStringLiteral("4K resolution"));
        return toggle && toggle->has(AccessibleElement::Checked);
    }));
    click(kButton, QStringLiteral("a lake, 1 picture"));
    EXPECT_TRUE(comes(kButton, QStringLiteral("Use Prompt")));
    act({QStringLiteral("key"), QStringLiteral("Escape")});
    EXPECT_TRUE(comes(kButton, QStringLiteral("a lake, 1 picture")));
}

TEST_F(X11WindowTest, aScreenReaderPressesTheControls)
{
    start(server->clientEnvironment(), "xcb");
    const auto isChecked = [&](const char *name) {
        const auto toggle = tree->find(QStringLiteral("check box"), QLatin1String(name));
        return toggle && toggle->has(AccessibleElement::Checked);
    };
    for (const char *name : {"4K resolution", "Auto-generate"}) {
        ASSERT_FALSE(isChecked(name)) << name;
        EXPECT_TRUE(tree->press(*tree->find(QStringLiteral("check box"), QLatin1String(name))));
        EXPECT_TRUE(waitFor([&] { return isChecked(name); })) << name;
    }
    openPreview();
    press([](const QString &name) { return name == QLatin1String("Unfavorite") || name == QLatin1String("Favorite"); });
    press([](const QString &name) { return name == QLatin1String("Close"); });
    EXPECT_TRUE(waitFor([&] { return !tree->find(kButton, QStringLiteral("Close")); }));
    press([](const QString &name) { return name == QLatin1String("Albums"); });
    press([](const QString &name) { return name.startsWith(QLatin1String("Favorites, 1")); });
    press([](const QString &name) { return name == QLatin1String("Menu"); });
    EXPECT_TRUE(comes(QStringLiteral("menu item"), QStringLiteral("Settings...")));
}

TEST_F(X11WindowTest, aScreenReaderPressesMenuLinesTabsAndPickers)
{
    start(server->clientEnvironment(), "xcb");
    press("push button", "Menu");
    press("menu item", "Settings...");
    EXPECT_TRUE(comes(QStringLiteral("text"), QStringLiteral("Gemini API Key")));
    EXPECT_TRUE(waitFor([&] { return !tree->find(QStringLiteral("menu item"), QStringLiteral("Settings...")); }));
    press("page tab", "Advanced");
    EXPECT_TRUE(waitFor([&] { return !tree->find(QStringLiteral("text"), QStringLiteral("Gemini API Key")); }));
    EXPECT_TRUE(isChosen("Provider", "Auto"));
    press("combo box", "Provider");
    press("list item", "OpenAI");
    EXPECT_TRUE(isChosen("Provider", "OpenAI"));
    press("page tab", "API Keys");
    EXPECT_TRUE(comes(QStringLiteral("text"), QStringLiteral("Gemini API Key")));

    press("check box", "Auto-generate");
    press("combo box", "Every");
    press("list item", "2 hours");
    EXPECT_TRUE(isChosen("Every", "2 hours"));
    press("push button", "Menu");
    press("menu item", "Auto-Generate");
    EXPECT_TRUE(waitFor([&] { return !tree->find(QStringLiteral("combo box"), QStringLiteral("Every")); }));
}

TEST_F(X11WindowTest, whatLiesUnderThePreviewIsNotReadOutAndNotPressed)
{
    start(server->clientEnvironment(), "xcb");
    press("push button", "a lake, 1 picture");
    const auto tile = button([](const QString &name) {
        return name.startsWith(QLatin1String("a lake, ")) && name != QLatin1String("a lake, 1 picture");
    });
    ASSERT_TRUE(tile && tree->press(*tile));
    EXPECT_TRUE(comes(kButton, QStringLiteral("Close")));
    const auto count = [&](const QString &name) {
        const QList<AccessibleElement> all = tree->elements();
        return std::count_if(all.begin(), all.end(), [&](const AccessibleElement &each) {
            return each.name == name && each.role == kButton && each.has(AccessibleElement::Showing);
        });
    };
    EXPECT_TRUE(waitFor([&] { return count(QStringLiteral("Use Prompt")) == 1; }));
    EXPECT_EQ(count(QStringLiteral("Albums")), 0);
    EXPECT_EQ(count(tile->name), 0);
    // A reader that still knows them gets nothing done by pressing.
    press("push button", "Favorite");
    EXPECT_TRUE(comes(kButton, QStringLiteral("Unfavorite")));
    press("push button", "Close");
    EXPECT_TRUE(waitFor([&] { return count(tile->name) == 1 && count(QStringLiteral("Use Prompt")) == 1; }));
    EXPECT_EQ(count(QStringLiteral("Albums")), 1);
}

TEST_F(X11WindowTest, aDisabledButtonSaysSoAndIsNotPressed)
{
    start(server->clientEnvironment(), "xcb");
    openSettings();
    EXPECT_FALSE(isEnabled(QStringLiteral("Save")));
    EXPECT_FALSE(isEnabled(QStringLiteral("Generate & Set Wallpaper")));
    (void)tree->press(*tree->find(kButton, QStringLiteral("Save")));
    EXPECT_TRUE(session.keyFile().isNull());
    click(QStringLiteral("text"), QStringLiteral("Gemini API Key"));
    act({QStringLiteral("type"), QStringLiteral("a-key")});
    EXPECT_TRUE(waitFor([&] { return isEnabled(QStringLiteral("Save")); }));
    press("push button", "Save");
    EXPECT_TRUE(comes(kButton, QStringLiteral("Update")));
    EXPECT_TRUE(session.keyFile().contains("a-key"));
}

TEST_F(X11WindowTest, aKeyThatIsTypedIsToldToNobodyEither)
{
    start(server->clientEnvironment(), "xcb");
    OwnedProgram monitor(QStringLiteral("dbus-monitor"),
                         {QStringLiteral("--address"), tree->addressOfEvents(),
                          QStringLiteral("interface='org.a11y.atspi.Event.Object'")},
                         session.environment(), session.home().path());
    const auto saidUntil = [&](const char *last) {
        QByteArray said;
        for (QByteArray line = monitor.readLine(); !line.isEmpty(); line = monitor.readLine()) {
            said += line + '\n';
            if (line.contains(last)) {
                return said;
            }
        }
        ADD_FAILURE() << "nobody said " << last << ": " << said.constData();
        return said;
    };
    click(QStringLiteral("text"), QStringLiteral("Prompt"));
    (void)saidUntil("string \"focused\"");
    openSettings();
    click(QStringLiteral("text"), QStringLiteral("Gemini API Key"));
    act({QStringLiteral("type"), QStringLiteral("ZZZZ")});
    ASSERT_TRUE(waitFor([&] { return isEnabled(QStringLiteral("Save")); }));
    for (const AccessibleElement &each : tree->elements()) {
        EXPECT_FALSE((each.name + each.text + each.description).contains(QLatin1String("ZZ")))
            << each.role.toStdString();
    }
    press("check box", "4K resolution");
    EXPECT_FALSE(saidUntil("string \"checked\"").contains('Z'));
}

/// With another program beside, which takes what is dropped into its window.
class X11DropTest : public X11WindowTest
{
  protected:
    void prepareDisplay() override
    {
        receiver.emplace(QStringLiteral(DROP_RECEIVER), QStringList(), session.environment(), session.home().path());
        ASSERT_TRUE(waitFor([&] { return server->rootWindow().pixelColor(kTarget) == QColor(Qt::blue); }))
            << receiver->errors().constData();
    }
    void moveTo(QPoint place) const
    {
        act({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
    }
    /// Takes what is at a place and lets it go over the other program; what that was given.
    [[nodiscard]] QByteArray dropped(QPoint from)
    {
        moveTo(from);
        act({QStringLiteral("mousedown"), QStringLiteral("1")});
        // It is carried once the pointer has gone some way, and is over the other program with the first move there.
        moveTo(from + QPoint(20, 5));
        moveTo(from + QPoint(40, 10));
        int step = 0;
        EXPECT_TRUE(waitFor([&] {
            moveTo(kTarget + QPoint(++step % 20, 0));
            return !outputOf(
                        QStringLiteral("xdotool"),
                        {QStringLiteral("search"), QStringLiteral("--name"), QStringLiteral("something is over it")},
                        server->clientEnvironment())
                        .isEmpty();
        }));
        act({QStringLiteral("mouseup"), QStringLiteral("1")});
        return receiver->readLine().trimmed();
    }
    [[nodiscard]] static QByteArray copyOfPicture()
    {
        return "copy " + QUrl::fromLocalFile(ImageStore::allImages().value(0)).toEncoded();
    }

    static constexpr QPoint kTarget{1080, 400};
    std::optional<OwnedProgram> receiver;
};

TEST_F(X11DropTest, aTileGivesItsFileToTheProgramItIsDroppedOn)
{
    start(server->clientEnvironment(), "xcb");
    press("push button", "a lake, 1 picture");
    const auto tile = button([](const QString &name) {
        return name.startsWith(QLatin1String("a lake, ")) && name != QLatin1String("a lake, 1 picture");
    });
    ASSERT_TRUE(tile.has_value());
    EXPECT_EQ(dropped(tree->areaOf(*tile).topLeft() + QPoint(60, 80)), copyOfPicture());
    // It was a drag and no click, and the next one works as well.
    EXPECT_FALSE(tree->find(kButton, QStringLiteral("Close")));
    EXPECT_EQ(dropped(tree->areaOf(*tile).topLeft() + QPoint(60, 80)), copyOfPicture());
}

TEST_F(X11DropTest, thePreviewGivesItsFileToTheProgramItIsDroppedOn)
{
    start(server->clientEnvironment(), "xcb");
    openPreview();
    ASSERT_TRUE(waitFor([&] { return server->rootWindow().pixelColor(620, 300) == QColor(Qt::red); }));
    EXPECT_EQ(dropped({620, 300}), copyOfPicture());
    EXPECT_TRUE(comes(kButton, QStringLiteral("Close")));
}

/// With what places and stacks the windows.
class X11ViewerTest : public X11WindowTest
{
  protected:
    void SetUp() override
    {
        const QString program = firstMissing({QStringLiteral("xfwm4"), QStringLiteral("xprop"), QStringLiteral("feh")});
        if (!program.isEmpty()) {
            GTEST_SKIP() << program.toStdString() << " is not installed";
        }
        X11WindowTest::SetUp();
    }
    void prepareDisplay() override
    {
        const QString folder = session.home().path();
        manager.emplace(QStringLiteral("xfwm4"), QStringList{QStringLiteral("--compositor=off")}, session.environment(),
                        folder);
        ASSERT_TRUE(waitFor([&] {
            return outputOf(QStringLiteral("xprop"), {QStringLiteral("-root"), QStringLiteral("_NET_SUPPORTED")},
                            server->clientEnvironment())
                .contains("_NET_WM_STATE_FULLSCREEN");
        })) << manager->errors().constData();
        // Another window, which takes the corner of the screen.
        QImage green(200, 200, QImage::Format_RGB32);
        green.fill(Qt::green);
        const QString file = folder + QStringLiteral("/green.png");
        ASSERT_TRUE(green.save(file));
        stranger.emplace(QStringLiteral("feh"),
                         QStringList{QStringLiteral("-x"), QStringLiteral("-g"), QStringLiteral("200x200+0+0"), file},
                         session.environment(), folder);
        ASSERT_TRUE(waitFor([&] { return isStrangerSeen(); })) << stranger->errors().constData();
    }
    [[nodiscard]] bool isStrangerSeen() const { return server->rootWindow().pixelColor(20, 20) == QColor(Qt::green); }

    /// Opens the preview and clicks its button, once it has come to its place beside those that depend on the picture.
    void openViewer()
    {
        openPreview();
        ASSERT_TRUE(comes(kButton, QStringLiteral("Upscale to 4K")));
        click(kButton, QStringLiteral("Full Screen"));
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
        EXPECT_TRUE(comes(kButton, QStringLiteral("Full Screen")));
        act({QStringLiteral("key"), QStringLiteral("Escape")});
        EXPECT_TRUE(waitFor([&] { return !tree->find(kButton, QStringLiteral("Full Screen")); }));
    }
    [[nodiscard]] QByteArray activeTitle() const
    {
        return outputOf(QStringLiteral("xdotool"), {QStringLiteral("getactivewindow"), QStringLiteral("getwindowname")},
                        server->clientEnvironment())
            .trimmed();
    }
    /// Whether the pointer's picture has anything to see. The libraries are there wherever xfwm4 is.
    [[nodiscard]] bool isPointerSeen() const
    {
        const QString script = QStringLiteral(R"(
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
)");
        const QByteArray answer =
            outputOf(QStringLiteral("python3"), {QStringLiteral("-c"), script}, server->clientEnvironment()).trimmed();
        EXPECT_TRUE(answer == "True" || answer == "False") << answer.constData();
        return answer == "True";
    }

    std::optional<OwnedProgram> manager;
    std::optional<OwnedProgram> stranger;
};

TEST_F(X11ViewerTest, itCoversTheScreenAndEscapeGivesTheWindowBack)
{
    start(server->clientEnvironment(), "xcb");
    openViewer();
    EXPECT_TRUE(waitFor([&] { return activeTitle() == "Quorvane"; }));
    EXPECT_TRUE(waitFor([&] { return !isPointerSeen(); }));
    act({QStringLiteral("key"), QStringLiteral("Escape")});
    EXPECT_TRUE(waitFor([&] { return isPointerSeen(); }));
    expectWindowBack();
}

TEST_F(X11ViewerTest, itHidesThePointerUntilAClickEndsIt)
{
    start(server->clientEnvironment(), "xcb");
    openViewer();
    EXPECT_TRUE(waitFor([&] { return !isPointerSeen(); }));
    act({QStringLiteral("click"), QStringLiteral("1")});
    EXPECT_TRUE(waitFor([&] { return isPointerSeen(); }));
    expectWindowBack();
}

/// With two screens, and a panel at the top of the right one.
class X11TwoScreensTest : public X11ViewerTest
{
  protected:
    void SetUp() override
    {
        const QString program = PrivateXorg::missingProgram();
        if (!program.isEmpty()) {
            GTEST_SKIP() << program.toStdString() << " is not installed";
        }
        X11ViewerTest::SetUp();
    }
    void startServer() override
    {
        auto screens = std::make_unique<PrivateXorg>();
        ASSERT_TRUE(screens->isReady());
        ASSERT_EQ(screens->areas(), (QList<QRect>{{0, 0, 1280, 720}, {1280, 0, 800, 600}}));
        server = std::move(screens);
    }
    void prepareDisplay() override
    {
        ASSERT_NO_FATAL_FAILURE(X11ViewerTest::prepareDisplay());
        panel.emplace(QStringLiteral(DROP_RECEIVER), QStringList{QStringLiteral("panel")}, session.environment(),
                      session.home().path());
        ASSERT_TRUE(waitFor([&] { return isPanelSeen(); })) << panel->errors().constData();
    }
    [[nodiscard]] bool isPanelSeen() const { return server->rootWindow().pixelColor(kInPanel) == QColor(Qt::blue); }

    static constexpr QPoint kInPanel{2070, 12};
    std::optional<OwnedProgram> panel;
};

TEST_F(X11TwoScreensTest, theViewerComesOnTheWindowsScreenAboveItsPanel)
{
    ASSERT_NO_FATAL_FAILURE(start(server->clientEnvironment(), "xcb"));
    openPreview();
    act({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"),
         QStringLiteral("^Quorvane$"), QStringLiteral("windowmove"), QStringLiteral("--sync"), QStringLiteral("1290"),
         QStringLiteral("40")});
    press("push button", "Full Screen");
    // The picture is square, so it leaves the sides of its screen black.
    EXPECT_TRUE(waitFor([&] {
        const QImage screens = server->rootWindow();
        return screens.pixelColor(1680, 5) == QColor(Qt::red) && screens.pixelColor(1680, 595) == QColor(Qt::red) &&
               screens.pixelColor(1282, 598) == QColor(Qt::black) && screens.pixelColor(kInPanel) == QColor(Qt::black);
    }));
    EXPECT_TRUE(isStrangerSeen());
    EXPECT_TRUE(waitFor([&] { return activeTitle() == "Quorvane"; }));
    act({QStringLiteral("key"), QStringLiteral("Escape")});
    EXPECT_TRUE(waitFor([&] { return isPanelSeen(); }));
    EXPECT_TRUE(comes(kButton, QStringLiteral("Full Screen")));
}

class SwayWindowTest : public WindowTest
{
  protected:
    void SetUp() override
    {
        const QString programMissing = PrivateSway::missingProgram();
        const QString reason = programMissing.isEmpty() ? missing({QStringLiteral("wtype")}) : programMissing;
        if (!reason.isEmpty()) {
            GTEST_SKIP() << reason.toStdString();
        }
        // With a panel on every screen.
        sway.emplace(QList<QSize>{QSize(1000, 700), QSize(600, 400)},
                     "bar {\n position top\n colors {\n background #00ff00\n }\n}\n");
        ASSERT_TRUE(sway->isReady());
        putPicture(QStringLiteral("a lake"));
    }
    /// Presses Escape until it has had its effect: the keyboard comes with each press, half a second before it, and
    /// goes after it; a busy program that has not taken notice of it by then loses the press.
    template <typename Condition> [[nodiscard]] bool escapeUntil(Condition condition) const
    {
        return waitFor([&] {
            (void)outputOf(
                QStringLiteral("wtype"),
                {QStringLiteral("-s"), QStringLiteral("500"), QStringLiteral("-k"), QStringLiteral("Escape")},
                sway->clientEnvironment());
            return waitFor(condition, std::chrono::seconds(4));
        });
    }
    [[nodiscard]] bool hasKeyboard() const
    {
        const QByteArray answer = outputOf(
            QStringLiteral("swaymsg"), {QStringLiteral("-rt"), QStringLiteral("get_tree")}, sway->clientEnvironment());
        return isFocused(QJsonDocument::fromJson(answer).object());
    }
    [[nodiscard]] QColor colorAt(const char *output, QPoint place) const
    {
        return sway->screenshot(QLatin1String(output)).pixelColor(place);
    }

    std::optional<PrivateSway> sway;
};

TEST_F(SwayWindowTest, theWindowHasTheKeyboardAndThePreviewCanBeLeftByIt)
{
    start(sway->clientEnvironment(), "wayland");
    EXPECT_TRUE(waitFor([&] { return hasKeyboard(); }));
    const QColor other = colorAt("HEADLESS-2", {300, 200});
    openPreview();
    // In the middle of what the sidebar leaves.
    const QPoint middle(640, 340);
    EXPECT_TRUE(waitFor([&] { return colorAt("HEADLESS-1", middle) == QColor(Qt::red); }));
    EXPECT_EQ(colorAt("HEADLESS-2", {300, 200}), other);
    EXPECT_TRUE(escapeUntil([&] { return colorAt("HEADLESS-1", middle) != QColor(Qt::red); }));
    EXPECT_TRUE(hasKeyboard());
}

TEST_F(SwayWindowTest, theViewerCoversItsScreenAndEscapeGivesTheWindowBack)
{
    start(sway->clientEnvironment(), "wayland");
    openPreview();
    const QPoint inPanel(998, 2);
    EXPECT_TRUE(waitFor([&] { return colorAt("HEADLESS-1", inPanel) == QColor(Qt::green); }));
    const QPoint inPicture(500, 20);
    ASSERT_TRUE(waitFor([&] { return colorAt("HEADLESS-1", inPicture) != QColor(Qt::red); }));
    const QImage other = sway->screenshot(QStringLiteral("HEADLESS-2"));
    press([](const QString &name) { return name == QLatin1String("Full Screen"); });
    // The picture is square, so it leaves the sides of the screen black.
    EXPECT_TRUE(waitFor([&] {
        const QImage screen = sway->screenshot(QStringLiteral("HEADLESS-1"));
        return screen.pixelColor(inPicture) == QColor(Qt::red) && screen.pixelColor(500, 680) == QColor(Qt::red) &&
               screen.pixelColor(1, 1) == QColor(Qt::black) && screen.pixelColor(998, 698) == QColor(Qt::black) &&
               screen.pixelColor(inPanel) == QColor(Qt::black);
    }));
    EXPECT_EQ(sway->screenshot(QStringLiteral("HEADLESS-2")), other);
    EXPECT_TRUE(escapeUntil([&] { return colorAt("HEADLESS-1", inPicture) != QColor(Qt::red); }));
    // The preview is still open, and the next Escape is for it.
    EXPECT_TRUE(comes(kButton, QStringLiteral("Full Screen")));
    EXPECT_TRUE(escapeUntil([&] { return !tree->find(kButton, QStringLiteral("Full Screen")); }));
}

TEST_F(SwayWindowTest, theViewerFollowsTheWindowToAnotherScreen)
{
    start(sway->clientEnvironment(), "wayland");
    openPreview();
    const QColor empty = colorAt("HEADLESS-2", QPoint(300, 200));
    (void)outputOf(QStringLiteral("swaymsg"),
                   {QStringLiteral("[title=\".*\"] move container to output HEADLESS-2, focus")},
                   sway->clientEnvironment());
    ASSERT_TRUE(waitFor([&] { return colorAt("HEADLESS-2", QPoint(300, 200)) != empty; }));
    const QImage other = sway->screenshot(QStringLiteral("HEADLESS-1"));
    press([](const QString &name) { return name == QLatin1String("Full Screen"); });
    EXPECT_TRUE(waitFor([&] {
        const QImage screen = sway->screenshot(QStringLiteral("HEADLESS-2"));
        return screen.pixelColor(300, 20) == QColor(Qt::red) && screen.pixelColor(300, 380) == QColor(Qt::red) &&
               screen.pixelColor(1, 1) == QColor(Qt::black) && screen.pixelColor(598, 398) == QColor(Qt::black);
    }));
    EXPECT_EQ(sway->screenshot(QStringLiteral("HEADLESS-1")), other);
}

} // namespace quorvane
