// One instance, and how it is reached: second starts, signals, commands.

#include "ShellFixture.h"

#include "App/Control/ControlCalls.h"
#include "Support/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

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
    session.environment().remove(u"QT_QPA_PLATFORM"_s);
    const auto second = start({});
    EXPECT_EQ(second->waitForEnd(), 0);
    EXPECT_TRUE(first->says("main opened"));
    EXPECT_EQ(command({u"quit"_s}).status, 0);
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
    EXPECT_EQ(command({u"quit"_s}).status, 0);
    EXPECT_TRUE(waitFor([&] { return running() == 0; }));
}

TEST_F(ShellInstanceTest, withoutABusALockKeepsItOne)
{
    session.stopBus();
    session.environment().remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    QFile::remove(session.environment().value(u"XDG_RUNTIME_DIR"_s) + u"/bus"_s);
    const auto first = start({});
    ASSERT_TRUE(first->says("main opened"));
    first->tell("Ctrl+Q");
    ASSERT_TRUE(first->says("main closed"));
    const auto second = start({});
    EXPECT_EQ(second->waitForEnd(), 0) << second->errors().constData();
    EXPECT_TRUE(first->says("main opened", 2));
    // Commands do their work themselves.
    EXPECT_EQ(command({u"settings"_s, u"intervalMinutes"_s, u"5"_s}).status, 0);
    EXPECT_EQ(command({u"quit"_s}).status, 1);
    const auto action = start({u"--action"_s, u"settings"_s});
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
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY\n").status, 0);
    EXPECT_EQ(command({u"key"_s, u"list"_s, u"--json"_s}).output, "[\"gemini\"]\n");
    const CommandRun made = command({u"generate"_s, u"--prompt"_s, u"a lake"_s, u"--json"_s});
    EXPECT_EQ(made.status, 0) << made.errors.constData();
    EXPECT_EQ(made.errors, "Wallpaper set!\n");
    const QString file = made.json()["file"_L1].toString();
    EXPECT_EQ(made.json()["status"_L1].toString(), u"Wallpaper set!"_s);
    // That it was the application, its own property tells.
    EXPECT_EQ(property(u"CurrentWallpaper"_s).toString(), file);
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_EQ(service.requests().first().header("x-goog-api-key"), "KEY");

    EXPECT_EQ(command({u"set"_s, QFileInfo(file).fileName()}).output, "Wallpaper set!\n");
    const CommandRun favorite = command({u"favorite"_s, QFileInfo(file).fileName(), u"--json"_s});
    EXPECT_TRUE(favorite.json()["favorite"_L1].toBool());
    EXPECT_EQ(command({u"auto"_s, u"on"_s, u"--json"_s}).output, "{\"autoEnabled\":true}\n");
    EXPECT_TRUE(property(u"AutoEnabled"_s).toBool());
    const QString next = property(u"NextFireDate"_s).toString();
    EXPECT_FALSE(next.isEmpty());
    EXPECT_EQ(command({u"status"_s, u"--json"_s}).json()["nextFireDate"_L1], QJsonValue(next));
    EXPECT_EQ(command({u"settings"_s, u"autoEnabled"_s, u"off"_s}).status, 0);
    EXPECT_FALSE(property(u"AutoEnabled"_s).toBool());
    EXPECT_EQ(command({u"settings"_s, u"lastPrompt"_s}).output, "a lake\n");
    EXPECT_EQ(command({u"settings"_s, u"--unset"_s, u"lastPrompt"_s}).status, 0);
    EXPECT_EQ(command({u"settings"_s, u"lastPrompt"_s}).output, "\n");
    EXPECT_EQ(command({u"delete"_s, file}).status, 0);
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(command({u"key"_s, u"delete"_s, u"gemini"_s}).status, 0);
    EXPECT_EQ(session.keyFile(), "{}");
}

TEST_F(ShellInstanceTest, theCurrentWallpaperOfTheSettingsReachesTheRunningApplication)
{
    const QString picture = session.home().path() + u"/lake.png"_s;
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(picture));
    const auto application = startAndWait();
    EXPECT_EQ(command({u"settings"_s, u"currentWallpaperPath"_s, picture}).status, 0);
    EXPECT_EQ(property(u"CurrentWallpaper"_s).toString(), picture);
    EXPECT_EQ(command({u"settings"_s, u"--unset"_s, u"currentWallpaperPath"_s}).status, 0);
    EXPECT_EQ(property(u"CurrentWallpaper"_s).toString(), QString());
    EXPECT_TRUE(command({u"status"_s, u"--json"_s}).json()["currentWallpaper"_L1].isNull());
}

TEST_F(ShellInstanceTest, aForwardedUpscaleTellsItsWayAndItsEnd)
{
    const auto application = startAndWait();
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    QImage source(16, 9, QImage::Format_RGB32);
    source.fill(Qt::red);
    const QString older = session.home().library() + u"/older.png"_s;
    ASSERT_TRUE(QDir().mkpath(session.home().library()) && source.save(older));
    const CommandRun made = command({u"upscale"_s, u"older.png"_s, u"--json"_s});
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.errors, "Upscaling to 4K...\nWallpaper set!\n");
    EXPECT_EQ(made.json()["original"_L1], QJsonValue(older));
}

TEST_F(ShellInstanceTest, forwardedCommandsLookLikeTheCommandItself)
{
    const QList<QStringList> commands{
        {u"generate"_s},
        {u"generate"_s, u"--json"_s},
        {u"set"_s, u"gone.png"_s},
        {u"delete"_s, u"gone.png"_s},
        {u"settings"_s, u"unknown"_s},
        {u"settings"_s, u"intervalMinutes"_s, u"0"_s},
        {u"settings"_s, u"--unset"_s, u"unknown"_s},
        {u"settings"_s},
        {u"key"_s, u"list"_s},
    };
    QList<CommandRun> alone;
    for (const QStringList &arguments : commands) {
        alone.append(command(arguments));
    }
    const auto application = startAndWait();
    for (qsizetype index = 0; index < commands.size(); ++index) {
        const CommandRun forwarded = command(commands.at(index));
        const std::string what = commands.at(index).join(' '_L1).toStdString();
        EXPECT_EQ(forwarded.status, alone.at(index).status) << what;
        EXPECT_EQ(forwarded.output, alone.at(index).output) << what;
        EXPECT_EQ(forwarded.errors, alone.at(index).errors) << what;
    }
}

TEST_F(ShellInstanceTest, quitEndsItAndTheNextStartIsTheApplication)
{
    const auto first = startAndWait();
    EXPECT_EQ(command({u"quit"_s}).status, 0);
    EXPECT_FALSE(isOnBus());
    EXPECT_EQ(first->waitForEnd(), 0);
    const CommandRun none = command({u"quit"_s});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.errors, "quorvane: the application is not running\n");
    const auto next = startAndWait();
    EXPECT_TRUE(next->isRunning());
}

TEST_F(ShellInstanceTest, quitReturnsWhenTheProcessHasEnded)
{
    session.environment().insert(u"TEST_SLOW_END"_s, u"yes"_s);
    const auto application = startAndWait();
    session.environment().remove(u"TEST_SLOW_END"_s);
    Application quit(session.environment(), {u"quit"_s}, QStringLiteral(QUORVANE_PROGRAM));
    ASSERT_TRUE(waitFor([this] { return !isOnBus(); }));
    // By now a quit that waits for the name alone would be over: a whole other command has its time in between.
    EXPECT_EQ(command({u"settings"_s}).status, 0);
    EXPECT_TRUE(quit.isRunning());
    EXPECT_TRUE(application->isRunning());
    application->tell("end");
    EXPECT_EQ(quit.waitForEnd(), 0) << quit.errors().constData();
    EXPECT_EQ(application->waitForEnd(), 0);
}

TEST_F(ShellInstanceTest, desktopActionsReachIt)
{
    const auto application = startAndWait();
    const auto act = [this](const char *action) {
        return call(Control::objectPath(), Control::applicationInterface(), u"ActivateAction"_s,
                    {QLatin1String(action), QVariantList(), QVariantMap()})
            .type();
    };
    EXPECT_EQ(act("toggle-auto"), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(property(u"AutoEnabled"_s).toBool());
    EXPECT_EQ(act("settings"), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(application->says("settings opened"));
    EXPECT_EQ(act("generate"), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(property(u"Status"_s).toString().startsWith(u"Missing Gemini API key"_s));
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
    (void)ask(u"Auto"_s, {true});
    const QJsonValue status = ask(u"Status"_s, {});
    EXPECT_TRUE(status["autoEnabled"_L1].toBool());
    EXPECT_EQ(status["nextFireDate"_L1].toString(), property(u"NextFireDate"_s).toString());
    EXPECT_EQ(command({u"status"_s, u"--json"_s}).json(), status);

    const QString entry = session.home().path() + u"/.config/autostart/app.quorvane.Quorvane.desktop"_s;
    EXPECT_EQ(ask(u"Autostart"_s, {true})["autostart"_L1], QJsonValue(true));
    EXPECT_TRUE(QFile::exists(entry));
    EXPECT_EQ(ask(u"Autostart"_s, {false})["autostart"_L1], QJsonValue(false));
    EXPECT_FALSE(QFile::exists(entry));

    EXPECT_EQ(ask(u"Model"_s, {}), command({u"model"_s, u"--json"_s}).json());
    const QDBusMessage refused =
        call(Control::objectPath(), Control::interfaceName(), u"InstallModel"_s, {u"/nonexistent.onnx"_s});
    EXPECT_EQ(refused.errorName(), Control::failedError());
    // It still answers, and knows itself to be the same.
    EXPECT_EQ(ask(u"Status"_s, {}), status);
}

TEST_F(ShellInstanceTest, theTokenOfASecondStartIsThereWhenTheWindowComesUp)
{
    const auto first = startAndWait();
    session.environment().insert(u"XDG_ACTIVATION_TOKEN"_s, u"token 1"_s);
    EXPECT_EQ(start({})->waitForEnd(), 0);
    ASSERT_TRUE(first->says("main opened"));
    first->tell("$XDG_ACTIVATION_TOKEN");
    EXPECT_TRUE(first->says("XDG_ACTIVATION_TOKEN=token 1\n"));
    // What X11 desktops give; and for a window that is open already.
    session.environment().remove(u"XDG_ACTIVATION_TOKEN"_s);
    session.environment().insert(u"DESKTOP_STARTUP_ID"_s, u"token 2"_s);
    EXPECT_EQ(start({})->waitForEnd(), 0);
    EXPECT_EQ(first->count("main opened"), 1);
    first->tell("$XDG_ACTIVATION_TOKEN");
    EXPECT_TRUE(first->says("XDG_ACTIVATION_TOKEN=token 2\n"));
}

TEST_F(ShellInstanceTest, whoWaitsForAnUpscaleThatTheEndCutsShortLearnsOfTheOriginal)
{
    const auto application = startAndWait();
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"grok"_s}, "KEY").status, 0);
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    ASSERT_EQ(command({u"settings"_s, u"providerOverride"_s, u"grok"_s}).status, 0);
    ASSERT_EQ(command({u"settings"_s, u"fourKEnabled"_s, u"true"_s}).status, 0);
    service.setResponder([](const HttpRequest &request) -> std::optional<WireScript> {
        return request.path.contains("generateContent") ? std::optional(WireScript().hang()) : std::nullopt;
    });
    QProcess waiting;
    waiting.setProcessEnvironment(session.environment());
    waiting.start(QStringLiteral(QUORVANE_PROGRAM), {u"generate"_s, u"--prompt"_s, u"a lake"_s, u"--json"_s});
    ASSERT_TRUE(waitFor([this] { return service.requests().size() == 2; }));
    EXPECT_EQ(command({u"quit"_s}).status, 0);
    ASSERT_TRUE(waitFor([&waiting] { return waiting.state() == QProcess::NotRunning; }));
    EXPECT_EQ(waiting.exitCode(), 1);
    const QJsonValue value = QJsonDocument::fromJson("[" + waiting.readAllStandardOutput() + "]").array().first();
    EXPECT_TRUE(value["isError"_L1].toBool());
    EXPECT_EQ(value["status"_L1].toString(), u"Upscale failed: Quorvane is quitting"_s);
    EXPECT_TRUE(QFile::exists(value["original"_L1].toString())) << value["original"_L1].toString().toStdString();
    EXPECT_TRUE(value["file"_L1].isNull());
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

TEST_F(ShellInstanceTest, endsInTheMiddleOfAGeneration)
{
    const auto application = startAndWait({});
    ASSERT_TRUE(application->says("main opened"));
    ASSERT_EQ(command({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    service.setMisbehaviour(Misbehaviour::Kind::Silence);
    click(MenuItem::GenerateNow); // Disabled, for want of a prompt.
    ASSERT_EQ(command({u"settings"_s, u"lastPrompt"_s, u"a lake"_s}).status, 0);
    click(MenuItem::GenerateNow);
    ASSERT_TRUE(waitFor([this] { return service.requests().size() == 1; }));
    application->signal(SIGTERM);
    EXPECT_EQ(application->waitForEnd(), 0) << application->errors().constData();
}

} // namespace quorvane
