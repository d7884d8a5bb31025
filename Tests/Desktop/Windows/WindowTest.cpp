// The program's own windows on real window systems: read as a screen reader reads them, and clicked and typed at
// through the window system.

#include "AccessibleTree.h"
#include "Support/Desktop/LoginSession.h"

#include "App/Control/ControlCalls.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Support/Desktop/OwnedProgram.h"
#include "Support/Desktop/PrivateSway.h"
#include "Support/Desktop/PrivateXServer.h"
#include "Support/Desktop/PrivateXorg.h"
#include "Support/Results.h"
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

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString kButton = u"push button"_s;

/// Whether a window of the program has the keyboard, as sway has it.
bool isFocused(const QJsonObject &node)
{
    if (node["focused"_L1].toBool() && node["app_id"_L1].toString() == "app.quorvane.Quorvane"_L1) {
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
            return u"at-spi2-core is not installed"_s;
        }
        const QString bus = whyNoBus();
        const QString program = firstMissing(programs);
        return !bus.isEmpty() ? bus : program.isEmpty() ? QString() : program + u" is not installed"_s;
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
        if (display.contains(u"WAYLAND_DISPLAY"_s)) {
            // A full path, because the session has a run-time folder of its own.
            environment.insert(u"WAYLAND_DISPLAY"_s,
                               display.value(u"XDG_RUNTIME_DIR"_s) + '/'_L1 + display.value(u"WAYLAND_DISPLAY"_s));
        }
        environment.insert(u"QT_QPA_PLATFORM"_s, QLatin1String(platform));
        environment.insert(u"QT_QUICK_BACKEND"_s, u"software"_s);
        environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
        environment.insert(u"QUORVANE_WALLPAPER_COMMAND"_s, u"/bin/true"_s);
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        const QString folder = session.home().path();
        accessibility.emplace(AccessibleTree::launcher(), QStringList{u"--launch-immediately"_s}, environment, folder);
        tree.emplace(session.connection());
        ASSERT_TRUE(
            waitFor([&] { return session.connection().interface()->isServiceRegistered(u"org.a11y.Bus"_s).value(); }));
        ASSERT_NO_FATAL_FAILURE(prepareDisplay());
        program.emplace(QStringLiteral(QUORVANE_PROGRAM), QStringList(), environment, folder);
        ASSERT_TRUE(comes(kButton, u"Generate & Set Wallpaper"_s)) << program->errors().constData();
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
            const auto found = tree->find(u"combo box"_s, QLatin1String(picker));
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
        press([](const QString &name) { return name == "a lake, 1 picture"_L1; });
        // The tile of the picture is the one that is named after its prompt and its date.
        press([](const QString &name) { return name.startsWith("a lake, "_L1) && name != "a lake, 1 picture"_L1; });
    }

    void openSettings()
    {
        QDBusMessage open = QDBusMessage::createMethodCall(Control::busName(), Control::objectPath(),
                                                           u"org.freedesktop.Application"_s, u"ActivateAction"_s);
        open.setArguments({u"settings"_s, QVariantList(), QVariantMap()});
        EXPECT_EQ(session.connection().call(open).type(), QDBusMessage::ReplyMessage);
        ASSERT_TRUE(comes(u"text"_s, u"Gemini API Key"_s));
    }

    static void putPicture(const QString &prompt)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImage image(400, 400, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(&buffer, "PNG"));
        EXPECT_TRUE(ImageStore::savePrompt(prompt, valueOf(ImageStore::saveImage(u"one.png"_s, bytes))));
    }

    LoginSession session;
    std::optional<OwnedProgram> accessibility;
    std::optional<AccessibleTree> tree;
    std::optional<OwnedProgram> program;
};

class X11WindowTest : public WindowTest
{
  protected:
    void SetUp() override
    {
        const QString reason = missing({u"Xvfb"_s, u"xdotool"_s});
        if (!reason.isEmpty()) {
            GTEST_SKIP() << reason.toStdString();
        }
        ASSERT_NO_FATAL_FAILURE(startServer());
        putPicture(u"a lake"_s);
    }

    virtual void startServer()
    {
        server = std::make_unique<PrivateXServer>(QSize(1200, 800));
        ASSERT_TRUE(server->isReady());
    }

    /// What xdotool does with these arguments; it must end well.
    void act(const QStringList &arguments) const
    {
        EXPECT_FALSE(outputOf(u"xdotool"_s, arguments, server->clientEnvironment()).isNull())
            << arguments.join(' '_L1).toStdString();
    }
    void click(const QString &role, const QString &name)
    {
        ASSERT_TRUE(comes(role, name)) << name.toStdString();
        const QPoint middle = tree->areaOf(*tree->find(role, name)).center();
        act({u"mousemove"_s, QString::number(middle.x()), QString::number(middle.y()), u"click"_s, u"1"_s});
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
    const auto prompt = tree->find(u"text"_s, u"Prompt"_s);
    ASSERT_TRUE(prompt.has_value());
    EXPECT_TRUE(prompt->has(AccessibleElement::Focusable) && prompt->has(AccessibleElement::Editable));
    // Whatever can be used now has a name.
    for (const AccessibleElement &each : tree->elements()) {
        const bool isControl = each.role == kButton || each.role == "check box"_L1 || each.role == "text"_L1 ||
                               each.role == "combo box"_L1;
        EXPECT_FALSE(isControl && each.has(AccessibleElement::Showing) && each.name.isEmpty())
            << each.role.toStdString() << ' ' << each.text.toStdString() << ' ' << each.description.toStdString();
    }
}

TEST_F(X11WindowTest, aStoredKeyIsToldToNobody)
{
    EXPECT_TRUE(Keychain::save(u"SECRET-KEY"_s, u"gemini"_s));
    start(server->clientEnvironment(), "xcb");
    openSettings();
    EXPECT_TRUE(comes(u"text"_s, u"OpenAI API Key"_s));
    EXPECT_TRUE(comes(kButton, u"Update"_s));
    for (const AccessibleElement &each : tree->elements()) {
        EXPECT_FALSE((each.name + each.text + each.description).contains("SECRET-KEY"_L1)) << each.role.toStdString();
    }
}

TEST_F(X11WindowTest, thePointerAndTheKeyboardReachTheControls)
{
    start(server->clientEnvironment(), "xcb");
    click(u"text"_s, u"Prompt"_s);
    act({u"type"_s, u"a quiet hill"_s});
    EXPECT_TRUE(waitFor([&] {
        const auto prompt = tree->find(u"text"_s, u"Prompt"_s);
        return prompt && prompt->text == "a quiet hill"_L1;
    }));
    click(u"check box"_s, u"4K resolution"_s);
    EXPECT_TRUE(waitFor([&] {
        const auto toggle = tree->find(u"check box"_s, u"4K resolution"_s);
        return toggle && toggle->has(AccessibleElement::Checked);
    }));
    click(kButton, u"a lake, 1 picture"_s);
    EXPECT_TRUE(comes(kButton, u"Use Prompt"_s));
    act({u"key"_s, u"Escape"_s});
    EXPECT_TRUE(comes(kButton, u"a lake, 1 picture"_s));
}

TEST_F(X11WindowTest, aScreenReaderPressesTheControls)
{
    start(server->clientEnvironment(), "xcb");
    const auto isChecked = [&](const char *name) {
        const auto toggle = tree->find(u"check box"_s, QLatin1String(name));
        return toggle && toggle->has(AccessibleElement::Checked);
    };
    for (const char *name : {"4K resolution", "Auto-generate"}) {
        ASSERT_FALSE(isChecked(name)) << name;
        EXPECT_TRUE(tree->press(*tree->find(u"check box"_s, QLatin1String(name))));
        EXPECT_TRUE(waitFor([&] { return isChecked(name); })) << name;
    }
    openPreview();
    press([](const QString &name) { return name == "Unfavorite"_L1 || name == "Favorite"_L1; });
    press([](const QString &name) { return name == "Close"_L1; });
    EXPECT_TRUE(waitFor([&] { return !tree->find(kButton, u"Close"_s); }));
    press([](const QString &name) { return name == "Albums"_L1; });
    press([](const QString &name) { return name.startsWith("Favorites, 1"_L1); });
    press([](const QString &name) { return name == "Menu"_L1; });
    EXPECT_TRUE(comes(u"menu item"_s, u"Settings..."_s));
}

TEST_F(X11WindowTest, aScreenReaderPressesMenuLinesTabsAndPickers)
{
    start(server->clientEnvironment(), "xcb");
    press("push button", "Menu");
    press("menu item", "Settings...");
    EXPECT_TRUE(comes(u"text"_s, u"Gemini API Key"_s));
    EXPECT_TRUE(waitFor([&] { return !tree->find(u"menu item"_s, u"Settings..."_s); }));
    press("page tab", "Advanced");
    EXPECT_TRUE(waitFor([&] { return !tree->find(u"text"_s, u"Gemini API Key"_s); }));
    EXPECT_TRUE(isChosen("Provider", "Auto"));
    press("combo box", "Provider");
    press("list item", "OpenAI");
    EXPECT_TRUE(isChosen("Provider", "OpenAI"));
    press("page tab", "API Keys");
    EXPECT_TRUE(comes(u"text"_s, u"Gemini API Key"_s));

    press("check box", "Auto-generate");
    press("combo box", "Every");
    press("list item", "2 hours");
    EXPECT_TRUE(isChosen("Every", "2 hours"));
    press("push button", "Menu");
    press("menu item", "Auto-Generate");
    EXPECT_TRUE(waitFor([&] { return !tree->find(u"combo box"_s, u"Every"_s); }));
}

TEST_F(X11WindowTest, whatLiesUnderThePreviewIsNotReadOutAndNotPressed)
{
    start(server->clientEnvironment(), "xcb");
    press("push button", "a lake, 1 picture");
    const auto tile =
        button([](const QString &name) { return name.startsWith("a lake, "_L1) && name != "a lake, 1 picture"_L1; });
    ASSERT_TRUE(tile && tree->press(*tile));
    EXPECT_TRUE(comes(kButton, u"Close"_s));
    const auto count = [&](const QString &name) {
        const QList<AccessibleElement> all = tree->elements();
        return std::count_if(all.begin(), all.end(), [&](const AccessibleElement &each) {
            return each.name == name && each.role == kButton && each.has(AccessibleElement::Showing);
        });
    };
    EXPECT_TRUE(waitFor([&] { return count(u"Use Prompt"_s) == 1; }));
    EXPECT_EQ(count(u"Albums"_s), 0);
    EXPECT_EQ(count(tile->name), 0);
    // A reader that still knows them gets nothing done by pressing.
    press("push button", "Favorite");
    EXPECT_TRUE(comes(kButton, u"Unfavorite"_s));
    // And back, for a favorite's tile has another name.
    press("push button", "Unfavorite");
    EXPECT_TRUE(comes(kButton, u"Favorite"_s));
    press("push button", "Close");
    EXPECT_TRUE(waitFor([&] { return count(tile->name) == 1 && count(u"Use Prompt"_s) == 1; }));
    EXPECT_EQ(count(u"Albums"_s), 1);
}

TEST_F(X11WindowTest, aDisabledButtonSaysSoAndIsNotPressed)
{
    start(server->clientEnvironment(), "xcb");
    openSettings();
    EXPECT_FALSE(isEnabled(u"Save"_s));
    EXPECT_FALSE(isEnabled(u"Generate & Set Wallpaper"_s));
    (void)tree->press(*tree->find(kButton, u"Save"_s));
    EXPECT_TRUE(session.keyFile().isNull());
    click(u"text"_s, u"Gemini API Key"_s);
    act({u"type"_s, u"a-key"_s});
    EXPECT_TRUE(waitFor([&] { return isEnabled(u"Save"_s); }));
    press("push button", "Save");
    EXPECT_TRUE(comes(kButton, u"Update"_s));
    EXPECT_TRUE(session.keyFile().contains("a-key"));
}

TEST_F(X11WindowTest, aKeyThatIsTypedIsToldToNobodyEither)
{
    start(server->clientEnvironment(), "xcb");
    OwnedProgram monitor(u"dbus-monitor"_s,
                         {u"--address"_s, tree->addressOfEvents(), u"interface='org.a11y.atspi.Event.Object'"_s},
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
    act({u"key"_s, u"Tab"_s});
    (void)saidUntil("string \"focused\"");
    openSettings();
    click(u"text"_s, u"Gemini API Key"_s);
    act({u"type"_s, u"ZZZZ"_s});
    ASSERT_TRUE(waitFor([&] { return isEnabled(u"Save"_s); }));
    for (const AccessibleElement &each : tree->elements()) {
        EXPECT_FALSE((each.name + each.text + each.description).contains("ZZ"_L1)) << each.role.toStdString();
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
    void moveTo(QPoint place) const { act({u"mousemove"_s, QString::number(place.x()), QString::number(place.y())}); }
    /// Takes what is at a place and lets it go over the other program; what that was given.
    [[nodiscard]] QByteArray dropped(QPoint from)
    {
        moveTo(from);
        act({u"mousedown"_s, u"1"_s});
        // It is carried once the pointer has gone some way, and is over the other program with the first move there.
        moveTo(from + QPoint(20, 5));
        moveTo(from + QPoint(40, 10));
        int step = 0;
        EXPECT_TRUE(waitFor([&] {
            moveTo(kTarget + QPoint(++step % 20, 0));
            return !outputOf(u"xdotool"_s, {u"search"_s, u"--name"_s, u"something is over it"_s},
                             server->clientEnvironment())
                        .isEmpty();
        }));
        act({u"mouseup"_s, u"1"_s});
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
    const auto tile =
        button([](const QString &name) { return name.startsWith("a lake, "_L1) && name != "a lake, 1 picture"_L1; });
    ASSERT_TRUE(tile.has_value());
    EXPECT_EQ(dropped(tree->areaOf(*tile).topLeft() + QPoint(60, 80)), copyOfPicture());
    // It was a drag and no click, and the next one works as well.
    EXPECT_FALSE(tree->find(kButton, u"Close"_s));
    EXPECT_EQ(dropped(tree->areaOf(*tile).topLeft() + QPoint(60, 80)), copyOfPicture());
}

TEST_F(X11DropTest, thePreviewGivesItsFileToTheProgramItIsDroppedOn)
{
    start(server->clientEnvironment(), "xcb");
    openPreview();
    ASSERT_TRUE(waitFor([&] { return server->rootWindow().pixelColor(620, 300) == QColor(Qt::red); }));
    EXPECT_EQ(dropped({620, 300}), copyOfPicture());
    EXPECT_TRUE(comes(kButton, u"Close"_s));
}

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

TEST_F(X11ViewerTest, itCoversTheScreenAndEscapeGivesTheWindowBack)
{
    start(server->clientEnvironment(), "xcb");
    openViewer();
    EXPECT_TRUE(waitFor([&] { return activeTitle() == "Quorvane"; }));
    EXPECT_TRUE(waitFor([&] { return !isPointerSeen(); }));
    act({u"key"_s, u"Escape"_s});
    EXPECT_TRUE(waitFor([&] { return isPointerSeen(); }));
    expectWindowBack();
}

TEST_F(X11ViewerTest, itHidesThePointerUntilAClickEndsIt)
{
    start(server->clientEnvironment(), "xcb");
    openViewer();
    EXPECT_TRUE(waitFor([&] { return !isPointerSeen(); }));
    act({u"click"_s, u"1"_s});
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
        panel.emplace(QStringLiteral(DROP_RECEIVER), QStringList{u"panel"_s}, session.environment(),
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
    act({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u"^Quorvane$"_s, u"windowmove"_s, u"--sync"_s, u"1290"_s,
         u"40"_s});
    press("push button", "Full Screen");
    // The picture is square, so it leaves the sides of its screen black.
    EXPECT_TRUE(waitFor([&] {
        const QImage screens = server->rootWindow();
        return screens.pixelColor(1680, 5) == QColor(Qt::red) && screens.pixelColor(1680, 595) == QColor(Qt::red) &&
               screens.pixelColor(1282, 598) == QColor(Qt::black) && screens.pixelColor(kInPanel) == QColor(Qt::black);
    }));
    EXPECT_TRUE(isStrangerSeen());
    EXPECT_TRUE(waitFor([&] { return activeTitle() == "Quorvane"; }));
    act({u"key"_s, u"Escape"_s});
    EXPECT_TRUE(waitFor([&] { return isPanelSeen(); }));
    EXPECT_TRUE(comes(kButton, u"Full Screen"_s));
}

class SwayWindowTest : public WindowTest
{
  protected:
    void SetUp() override
    {
        const QString programMissing = PrivateSway::missingProgram();
        const QString reason = programMissing.isEmpty() ? missing({u"wtype"_s}) : programMissing;
        if (!reason.isEmpty()) {
            GTEST_SKIP() << reason.toStdString();
        }
        // With a panel on every screen.
        sway.emplace(QList<QSize>{QSize(1000, 700), QSize(600, 400)},
                     "bar {\n position top\n colors {\n background #00ff00\n }\n}\n");
        ASSERT_TRUE(sway->isReady());
        putPicture(u"a lake"_s);
    }
    /// Presses Escape until it has had its effect: the keyboard comes with each press, half a second before it, and
    /// goes after it; a busy program that has not taken notice of it by then loses the press.
    template <typename Condition> [[nodiscard]] bool escapeUntil(Condition condition) const
    {
        return waitFor([&] {
            (void)outputOf(u"wtype"_s, {u"-s"_s, u"500"_s, u"-k"_s, u"Escape"_s}, sway->clientEnvironment());
            return waitFor(condition, std::chrono::seconds(4));
        });
    }
    [[nodiscard]] bool hasKeyboard() const
    {
        const QByteArray answer = outputOf(u"swaymsg"_s, {u"-rt"_s, u"get_tree"_s}, sway->clientEnvironment());
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
    const QImage other = sway->screenshot(u"HEADLESS-2"_s);
    press([](const QString &name) { return name == "Full Screen"_L1; });
    // The picture is square, so it leaves the sides of the screen black.
    EXPECT_TRUE(waitFor([&] {
        const QImage screen = sway->screenshot(u"HEADLESS-1"_s);
        return screen.pixelColor(inPicture) == QColor(Qt::red) && screen.pixelColor(500, 680) == QColor(Qt::red) &&
               screen.pixelColor(1, 1) == QColor(Qt::black) && screen.pixelColor(998, 698) == QColor(Qt::black) &&
               screen.pixelColor(inPanel) == QColor(Qt::black);
    }));
    EXPECT_EQ(sway->screenshot(u"HEADLESS-2"_s), other);
    EXPECT_TRUE(escapeUntil([&] { return colorAt("HEADLESS-1", inPicture) != QColor(Qt::red); }));
    // The preview is still open, and the next Escape is for it.
    EXPECT_TRUE(comes(kButton, u"Full Screen"_s));
    EXPECT_TRUE(escapeUntil([&] { return !tree->find(kButton, u"Full Screen"_s); }));
}

TEST_F(SwayWindowTest, theViewerFollowsTheWindowToAnotherScreen)
{
    start(sway->clientEnvironment(), "wayland");
    openPreview();
    const QColor empty = colorAt("HEADLESS-2", QPoint(300, 200));
    (void)outputOf(u"swaymsg"_s, {u"[title=\".*\"] move container to output HEADLESS-2, focus"_s},
                   sway->clientEnvironment());
    ASSERT_TRUE(waitFor([&] { return colorAt("HEADLESS-2", QPoint(300, 200)) != empty; }));
    const QImage other = sway->screenshot(u"HEADLESS-1"_s);
    press([](const QString &name) { return name == "Full Screen"_L1; });
    EXPECT_TRUE(waitFor([&] {
        const QImage screen = sway->screenshot(u"HEADLESS-2"_s);
        return screen.pixelColor(300, 20) == QColor(Qt::red) && screen.pixelColor(300, 380) == QColor(Qt::red) &&
               screen.pixelColor(1, 1) == QColor(Qt::black) && screen.pixelColor(598, 398) == QColor(Qt::black);
    }));
    EXPECT_EQ(sway->screenshot(u"HEADLESS-1"_s), other);
}

} // namespace quorvane
