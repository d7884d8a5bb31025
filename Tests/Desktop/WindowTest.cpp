// The program's own windows on real window systems: read as a screen reader reads them, and clicked and typed at
// through the window system.

#include "AccessibleTree.h"
#include "KeyringSession.h"

#include "App/ControlCalls.h"
#include "Storage/ImageStore.h"
#include "Storage/Keychain.h"
#include "Support/OwnedProgram.h"
#include "Support/PrivateSway.h"
#include "Support/PrivateXServer.h"
#include "Support/WaitFor.h"

#include <QBuffer>
#include <QDBusConnectionInterface>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

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
        program.emplace(QStringLiteral(QUORVANE_PROGRAM), QStringList(), environment, folder);
        ASSERT_TRUE(comes(kButton, QStringLiteral("Generate & Set Wallpaper"))) << program->errors().constData();
    }

    /// Waits for the element.
    [[nodiscard]] bool comes(const QString &role, const QString &name)
    {
        return waitFor([&] { return tree->find(role, name).has_value(); });
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
        server.emplace(QSize(1200, 800));
        ASSERT_TRUE(server->isReady());
        putPicture(QStringLiteral("a lake"));
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

    std::optional<PrivateXServer> server;
};

TEST_F(X11WindowTest, aScreenReaderFindsTheControlsByRoleNameAndState)
{
    start(server->clientEnvironment(), "xcb");
    for (const auto &[role, name] : {std::pair{"text", "Prompt"},
                                     {"check box", "4K resolution"},
                                     {"check box", "NSFW"},
                                     {"check box", "Auto-generate"},
                                     {"push button", "a lake, 1 pictures"}}) {
        EXPECT_TRUE(comes(QLatin1String(role), QLatin1String(name))) << role << ' ' << name;
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
    QDBusMessage open =
        QDBusMessage::createMethodCall(Control::busName(), Control::objectPath(),
                                       QStringLiteral("org.freedesktop.Application"), QStringLiteral("ActivateAction"));
    open.setArguments({QStringLiteral("settings"), QVariantList(), QVariantMap()});
    EXPECT_EQ(session.connection().call(open).type(), QDBusMessage::ReplyMessage);
    ASSERT_TRUE(comes(QStringLiteral("text"), QStringLiteral("Gemini API Key")));
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
    click(kButton, QStringLiteral("a lake, 1 pictures"));
    EXPECT_TRUE(comes(kButton, QStringLiteral("Use Prompt")));
    act({QStringLiteral("key"), QStringLiteral("Escape")});
    EXPECT_TRUE(comes(kButton, QStringLiteral("a lake, 1 pictures")));
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
        sway.emplace(QList<QSize>{QSize(1000, 700), QSize(600, 400)});
        ASSERT_TRUE(sway->isReady());
        putPicture(QStringLiteral("a lake"));
    }
    void type(const QStringList &keys) const
    {
        EXPECT_FALSE(outputOf(QStringLiteral("wtype"), keys, sway->clientEnvironment()).isNull());
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
    for (const char *name : {"a lake, 1 pictures", ""}) {
        // The tile of the picture is the one that is named after its prompt and its date.
        const auto find = [&]() -> std::optional<AccessibleElement> {
            for (const AccessibleElement &each : tree->elements()) {
                const bool isIt = *name == '\0' ? each.name.startsWith(QLatin1String("a lake, ")) &&
                                                      !each.name.endsWith(QLatin1String("pictures"))
                                                : each.name == QLatin1String(name);
                if (each.role == kButton && isIt && each.has(AccessibleElement::Showing)) {
                    return each;
                }
            }
            return std::nullopt;
        };
        ASSERT_TRUE(waitFor([&] { return find().has_value(); })) << name;
        EXPECT_TRUE(tree->press(*find())) << name;
    }
    // In the middle of what the sidebar leaves.
    const QPoint middle(640, 340);
    EXPECT_TRUE(waitFor([&] { return colorAt("HEADLESS-1", middle) == QColor(Qt::red); }));
    EXPECT_EQ(colorAt("HEADLESS-2", {300, 200}), other);
    type({QStringLiteral("-k"), QStringLiteral("Escape")});
    EXPECT_TRUE(waitFor([&] { return colorAt("HEADLESS-1", middle) != QColor(Qt::red); }));
    EXPECT_TRUE(hasKeyboard());
}

} // namespace quorvane
