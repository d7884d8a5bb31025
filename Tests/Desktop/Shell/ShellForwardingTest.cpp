#include "ShellInstanceFixture.h"

#include "App/Control/ControlCalls.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
