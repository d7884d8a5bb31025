#include "WindowFixture.h"

#include <QDBusConnectionInterface>

using namespace Qt::StringLiterals;

namespace quorvane {

QString WindowTest::missing(const QStringList &programs)
{
    if (AccessibleTree::launcher().isEmpty()) {
        return u"at-spi2-core is not installed"_s;
    }
    const QString bus = whyNoBus();
    const QString program = firstMissing(programs);
    return !bus.isEmpty() ? bus : program.isEmpty() ? QString() : program + u" is not installed"_s;
}

void WindowTest::start(const QProcessEnvironment &display, const char *platform)
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

bool WindowTest::comes(const QString &role, const QString &name)
{
    return waitFor([&] { return tree->find(role, name).has_value(); });
}

std::optional<AccessibleElement> WindowTest::button(const std::function<bool(const QString &)> &fits)
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

void WindowTest::press(const std::function<bool(const QString &)> &fits)
{
    const auto found = button(fits);
    ASSERT_TRUE(found && tree->press(*found));
}

void WindowTest::press(const char *role, const char *name)
{
    ASSERT_TRUE(comes(QLatin1String(role), QLatin1String(name))) << name;
    EXPECT_TRUE(tree->press(*tree->find(QLatin1String(role), QLatin1String(name)))) << name;
}

bool WindowTest::isChosen(const char *picker, const char *choice)
{
    return waitFor([&] {
        const auto found = tree->find(u"combo box"_s, QLatin1String(picker));
        return found && found->description == QLatin1String(choice);
    });
}

bool WindowTest::isEnabled(const QString &name)
{
    const auto found = tree->find(kButton, name);
    return found && found->has(AccessibleElement::Enabled);
}

void WindowTest::openPreview()
{
    press([](const QString &name) { return name == "a lake, 1 picture"_L1; });
    // The tile of the picture is the one that is named after its prompt and its date.
    press([](const QString &name) { return name.startsWith("a lake, "_L1) && name != "a lake, 1 picture"_L1; });
}

void WindowTest::openSettings()
{
    QDBusMessage open = QDBusMessage::createMethodCall(Control::busName(), Control::objectPath(),
                                                       u"org.freedesktop.Application"_s, u"ActivateAction"_s);
    open.setArguments({u"settings"_s, QVariantList(), QVariantMap()});
    EXPECT_EQ(session.connection().call(open).type(), QDBusMessage::ReplyMessage);
    ASSERT_TRUE(comes(u"text"_s, u"Gemini API Key"_s));
}

void WindowTest::putPicture(const QString &prompt)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImage image(400, 400, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_TRUE(image.save(&buffer, "PNG"));
    EXPECT_TRUE(ImageStore::savePrompt(prompt, valueOf(ImageStore::saveImage(u"one.png"_s, bytes))));
}

void X11WindowTest::SetUp()
{
    const QString reason = missing({u"Xvfb"_s, u"xdotool"_s});
    if (!reason.isEmpty()) {
        GTEST_SKIP() << reason.toStdString();
    }
    ASSERT_NO_FATAL_FAILURE(startServer());
    putPicture(u"a lake"_s);
}

void X11WindowTest::startServer()
{
    server = std::make_unique<PrivateXServer>(QSize(1200, 800));
    ASSERT_TRUE(server->isReady());
}

void X11WindowTest::act(const QStringList &arguments) const
{
    EXPECT_FALSE(outputOf(u"xdotool"_s, arguments, server->clientEnvironment()).isNull())
        << arguments.join(' '_L1).toStdString();
}

void X11WindowTest::click(const QString &role, const QString &name)
{
    ASSERT_TRUE(comes(role, name)) << name.toStdString();
    const QPoint middle = tree->areaOf(*tree->find(role, name)).center();
    act({u"mousemove"_s, QString::number(middle.x()), QString::number(middle.y()), u"click"_s, u"1"_s});
}

} // namespace quorvane
