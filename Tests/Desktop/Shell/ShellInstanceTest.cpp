// One instance, and how it is reached: second starts, signals, commands.

#include "ShellSession.h"

#include "App/Control/ControlCalls.h"
#include "Support/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace quorvane {

using ShellInstanceTest = ShellTest;

TEST_F(ShellInstanceTest, aSecondStartOpensTheWindowOfTheFirstAndEnds)
{
    const auto first = startAndWait();
    const auto hidden = start();
    EXPECT_EQ(hidden->waitForEnd(), 0);
    EXPECT_EQ(first->count("main opened"), 0);
    const auto second = start({});
    EXPECT_EQ(second->waitForEnd(), 0);
    EXPECT_TRUE(first->says("main opened"));
    const auto third = start({});
    EXPECT_EQ(third->waitForEnd(), 0);
    EXPECT_EQ(first->count("main opened"), 1);
    EXPECT_TRUE(first->isRunning());
}

TEST_F(ShellInstanceTest, withoutADisplayASecondStartStillReachesTheFirst)
{
    const auto first = startAndWait();
    session.environment().remove(QStringLiteral("QT_QPA_PLATFORM"));
    const auto second = start({});
    EXPECT_EQ(second->waitForEnd(), 0);
    EXPECT_TRUE(first->says("main opened"));
    EXPECT_EQ(command({QStringLiteral("quit")}).status, 0);
    EXPECT_EQ(first->waitForEnd(), 0);
    const auto alone = start({});
    EXPECT_EQ(alone->waitForEnd(), 1);
    EXPECT_EQ(alone->count("there is no display"), 1);
}

TEST_F(ShellInstanceTest, ofTenStartsAtOnceOneStays)
{
    std::vector<std::unique_ptr<Application>> all;
    for (int each = 0; each < 10; ++each) {
        all.push_back(start({}));
    }
    const auto running = [&all] {
        return std::count_if(all.begin(), all.end(), [](const auto &each) { return each->isRunning(); });
    };
    ASSERT_TRUE(waitFor([&] { return running() == 1; }));
    int opened = 0;
    for (const auto &each : all) {
        EXPECT_TRUE(each->isRunning() || each->waitForEnd() == 0) << each->errors().constData();
        opened += each->count("main opened");
    }
    EXPECT_LE(opened, 1);
    EXPECT_EQ(command({QStringLiteral("quit")}).status, 0);
    EXPECT_TRUE(waitFor([&] { return running() == 0; }));
}

TEST_F(ShellInstanceTest, withoutABusALockKeepsItOne)
{
    session.stopBus();
    session.environment().remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    QFile::remove(session.environment().value(QStringLiteral("XDG_RUNTIME_DIR")) + QStringLiteral("/bus"));
    const auto first = start({});
    ASSERT_TRUE(first->says("main opened"));
    first->tell("Ctrl+Q");
    ASSERT_TRUE(first->says("main closed"));
    const auto second = start({});
    EXPECT_EQ(second->waitForEnd(), 0) << second->errors().constData();
    EXPECT_TRUE(first->says("main opened", 2));
    // Commands do their work themselves.
    EXPECT_EQ(command({QStringLiteral("settings"), QStringLiteral("intervalMinutes"), QStringLiteral("5")}).status, 0);
    EXPECT_EQ(command({QStringLiteral("quit")}).status, 1);
    const auto action = start({QStringLiteral("--action"), QStringLiteral("settings")});
    EXPECT_EQ(action->waitForEnd(), 1);
    EXPECT_EQ(action->errors(),
              "quorvane: the application runs already and can be told nothing without a session bus\n");
    first->signal(SIGTERM);
    EXPECT_EQ(first->waitForEnd(), 0);
}

TEST_F(ShellInstanceTest, everyEndSignalEndsItCleanlyWithWindowsOpen)
{
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        const auto application = startAndWait({});
        ASSERT_TRUE(application->says("main opened"));
        application->signal(number);
        EXPECT_EQ(application->waitForEnd(), 0) << number << application->errors().constData();
        EXPECT_EQ(application->count("main closed"), 1);
        EXPECT_TRUE(waitFor([this] { return !isOnBus(); }));
    }
}

TEST_F(ShellInstanceTest, commandsAreCarriedOutByTheRunningApplication)
{
    const auto application = startAndWait();
    ASSERT_EQ(command({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, "KEY\n").status, 0);
    EXPECT_EQ(command({QStringLiteral("key"), QStringLiteral("list"), QStringLiteral("--json")}).output,
              "[\"gemini\"]\n");
    const CommandRun made = command(
        {QStringLiteral("generate"), QStringLiteral("--prompt"), QStringLiteral("a lake"), QStringLiteral("--json")});
    EXPECT_EQ(made.status, 0) << made.errors.constData();
    EXPECT_EQ(made.errors, "Wallpaper set!\n");
    const QString file = made.json()[QLatin1String("file")].toString();
    EXPECT_EQ(made.json()[QLatin1String("status")].toString(), QStringLiteral("Wallpaper set!"));
    // That it was the application, its own property tells.
    EXPECT_EQ(property(QStringLiteral("CurrentWallpaper")).toString(), file);
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_EQ(service.requests().first().header("x-goog-api-key"), "KEY");

    EXPECT_EQ(command({QStringLiteral("set"), QFileInfo(file).fileName()}).output, "Wallpaper set!\n");
    const CommandRun favorite =
        command({QStringLiteral("favorite"), QFileInfo(file).fileName(), QStringLiteral("--json")});
    EXPECT_TRUE(favorite.json()[QLatin1String("favorite")].toBool());
    EXPECT_EQ(command({QStringLiteral("auto"), QStringLiteral("on"), QStringLiteral("--json")}).output,
              "{\"autoEnabled\":true}\n");
    EXPECT_TRUE(property(QStringLiteral("AutoEnabled")).toBool());
    const QString next = property(QStringLiteral("NextFireDate")).toString();
    EXPECT_FALSE(next.isEmpty());
    EXPECT_EQ(command({QStringLiteral("status"), QStringLiteral("--json")}).json()[QLatin1String("nextFireDate")],
              QJsonValue(next));
    EXPECT_EQ(command({QStringLiteral("settings"), QStringLiteral("autoEnabled"), QStringLiteral("off")}).status, 0);
    EXPECT_FALSE(property(QStringLiteral("AutoEnabled")).toBool());
    EXPECT_EQ(command({QStringLiteral("settings"), QStringLiteral("lastPrompt")}).output, "a lake\n");
    EXPECT_EQ(command({QStringLiteral("settings"), QStringLiteral("--unset"), QStringLiteral("lastPrompt")}).status, 0);
    EXPECT_EQ(command({QStringLiteral("settings"), QStringLiteral("lastPrompt")}).output, "\n");
    EXPECT_EQ(command({QStringLiteral("delete"), file}).status, 0);
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(command({QStringLiteral("key"), QStringLiteral("delete"), QStringLiteral("gemini")}).status, 0);
    EXPECT_EQ(session.keyFile(), "{}");
}

TEST_F(ShellInstanceTest, aForwardedUpscaleTellsItsWayAndItsEnd)
{
    const auto application = startAndWait();
    ASSERT_EQ(command({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, "KEY").status, 0);
    QImage source(16, 9, QImage::Format_RGB32);
    source.fill(Qt::red);
    const QString older = session.home().library() + QStringLiteral("/older.png");
    ASSERT_TRUE(QDir().mkpath(session.home().library()) && source.save(older));
    const CommandRun made = command({QStringLiteral("upscale"), QStringLiteral("older.png"), QStringLiteral("--json")});
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.errors, "Upscaling to 4K...\nWallpaper set!\n");
    EXPECT_EQ(made.json()[QLatin1String("original")], QJsonValue(older));
}

TEST_F(ShellInstanceTest, forwardedCommandsLookLikeTheCommandItself)
{
    const QList<QStringList> commands{
        {QStringLiteral("generate")},
        {QStringLiteral("generate"), QStringLiteral("--json")},
        {QStringLiteral("set"), QStringLiteral("gone.png")},
        {QStringLiteral("delete"), QStringLiteral("gone.png")},
        {QStringLiteral("settings"), QStringLiteral("unknown")},
        {QStringLiteral("settings"), QStringLiteral("intervalMinutes"), QStringLiteral("0")},
        {QStringLiteral("settings"), QStringLiteral("--unset"), QStringLiteral("unknown")},
        {QStringLiteral("settings")},
        {QStringLiteral("key"), QStringLiteral("list")},
    };
    QList<CommandRun> alone;
    for (const QStringList &arguments : commands) {
        alone.append(command(arguments));
    }
    const auto application = startAndWait();
    for (qsizetype index = 0; index < commands.size(); ++index) {
        const CommandRun forwarded = command(commands.at(index));
        const std::string what = commands.at(index).join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(forwarded.status, alone.at(index).status) << what;
        EXPECT_EQ(forwarded.output, alone.at(index).output) << what;
        EXPECT_EQ(forwarded.errors, alone.at(index).errors) << what;
    }
}

TEST_F(ShellInstanceTest, quitEndsItAndTheNextStartIsTheApplication)
{
    const auto first = startAndWait();
    EXPECT_EQ(command({QStringLiteral("quit")}).status, 0);
    EXPECT_FALSE(isOnBus());
    EXPECT_EQ(first->waitForEnd(), 0);
    const CommandRun none = command({QStringLiteral("quit")});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.errors, "quorvane: the application is not running\n");
    const auto next = startAndWait();
    EXPECT_TRUE(next->isRunning());
}

TEST_F(ShellInstanceTest, desktopActionsReachIt)
{
    const auto application = startAndWait();
    const auto act = [this](const char *action) {
        return call(Control::objectPath(), Control::applicationInterface(), QStringLiteral("ActivateAction"),
                    {QLatin1String(action), QVariantList(), QVariantMap()})
            .type();
    };
    EXPECT_EQ(act("toggle-auto"), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(property(QStringLiteral("AutoEnabled")).toBool());
    EXPECT_EQ(act("settings"), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(application->says("settings opened"));
    EXPECT_EQ(act("generate"), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(property(QStringLiteral("Status")).toString().startsWith(QStringLiteral("Missing Gemini API key")));
    EXPECT_EQ(act("explode"), QDBusMessage::ErrorMessage);
    EXPECT_EQ(act("quit"), QDBusMessage::ReplyMessage);
    EXPECT_EQ(application->waitForEnd(), 0);
}

TEST_F(ShellInstanceTest, theBusOffersWhatTheCommandLineDoes)
{
    const auto application = startAndWait();
    const auto ask = [this](const QString &method, const QVariantList &arguments) {
        const QDBusMessage reply = call(Control::objectPath(), Control::interfaceName(), method, arguments);
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
        return QJsonDocument::fromJson("[" + reply.arguments().value(0).toString().toUtf8() + "]").array().first();
    };
    (void)ask(QStringLiteral("Auto"), {true});
    const QJsonValue status = ask(QStringLiteral("Status"), {});
    EXPECT_TRUE(status[QLatin1String("autoEnabled")].toBool());
    EXPECT_EQ(status[QLatin1String("nextFireDate")].toString(), property(QStringLiteral("NextFireDate")).toString());
    EXPECT_EQ(command({QStringLiteral("status"), QStringLiteral("--json")}).json(), status);

    const QString entry = session.home().path() + QStringLiteral("/.config/autostart/app.quorvane.Quorvane.desktop");
    EXPECT_EQ(ask(QStringLiteral("Autostart"), {true})[QLatin1String("autostart")], QJsonValue(true));
    EXPECT_TRUE(QFile::exists(entry));
    EXPECT_EQ(ask(QStringLiteral("Autostart"), {false})[QLatin1String("autostart")], QJsonValue(false));
    EXPECT_FALSE(QFile::exists(entry));

    EXPECT_EQ(ask(QStringLiteral("Model"), {}), command({QStringLiteral("model"), QStringLiteral("--json")}).json());
    const QDBusMessage refused = call(Control::objectPath(), Control::interfaceName(), QStringLiteral("InstallModel"),
                                      {QStringLiteral("/nonexistent.onnx")});
    EXPECT_EQ(refused.errorName(), Control::failedError());
    // It still answers, and knows itself to be the same.
    EXPECT_EQ(ask(QStringLiteral("Status"), {}), status);
}

TEST_F(ShellInstanceTest, theTokenOfASecondStartIsThereWhenTheWindowComesUp)
{
    const auto first = startAndWait();
    session.environment().insert(QStringLiteral("XDG_ACTIVATION_TOKEN"), QStringLiteral("token 1"));
    EXPECT_EQ(start({})->waitForEnd(), 0);
    ASSERT_TRUE(first->says("main opened"));
    first->tell("$XDG_ACTIVATION_TOKEN");
    EXPECT_TRUE(first->says("XDG_ACTIVATION_TOKEN=token 1\n"));
    // What X11 desktops give; and for a window that is open already.
    session.environment().remove(QStringLiteral("XDG_ACTIVATION_TOKEN"));
    session.environment().insert(QStringLiteral("DESKTOP_STARTUP_ID"), QStringLiteral("token 2"));
    EXPECT_EQ(start({})->waitForEnd(), 0);
    EXPECT_EQ(first->count("main opened"), 1);
    first->tell("$XDG_ACTIVATION_TOKEN");
    EXPECT_TRUE(first->says("XDG_ACTIVATION_TOKEN=token 2\n"));
}

TEST_F(ShellInstanceTest, endsInTheMiddleOfAGeneration)
{
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    ASSERT_EQ(command({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, "KEY").status, 0);
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    click(MenuItem::GenerateNow); // Disabled, for want of a prompt.
    ASSERT_EQ(command({QStringLiteral("settings"), QStringLiteral("lastPrompt"), QStringLiteral("a lake")}).status, 0);
    click(MenuItem::GenerateNow);
    ASSERT_TRUE(waitFor([this] { return service.requests().size() == 1; }));
    application->signal(SIGTERM);
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

} // namespace quorvane
