// The program as scripts use it: real runs, in a home of their own, with the demonstration service.

#include "Support/CommandRun.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "demo-service/DemoService.h"

#include <QImage>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

namespace quorvane {

class CommandsTest : public testing::Test
{
  protected:
    CommandsTest()
    {
        service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
            QImage image(8, 8, QImage::Format_RGB32);
            image.fill(Qt::darkCyan);
            return image;
        });
        environment = QProcessEnvironment::systemEnvironment();
        for (const char *name :
             {"DISPLAY", "WAYLAND_DISPLAY", "SWAYSOCK", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"}) {
            environment.remove(QLatin1String(name));
        }
        for (const char *name : {"QUORVANE_GEMINI_BASE_URL", "QUORVANE_XAI_BASE_URL", "QUORVANE_OPENAI_BASE_URL"}) {
            environment.insert(QLatin1String(name), service.baseAddress().toString());
        }
        environment.insert(QStringLiteral("QUORVANE_WALLPAPER_COMMAND"), QStringLiteral("/bin/true"));
        environment.insert(QStringLiteral("XDG_DATA_DIRS"), QStringLiteral("/nonexistent"));
    }

    [[nodiscard]] CommandRun run(const QStringList &arguments, const QByteArray &input = {}) const
    {
        return runQuorvane(arguments, environment, input, home.path());
    }

    /// Generates one picture and returns its path.
    QString generate(const QString &prompt)
    {
        (void)run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, "KEY");
        const CommandRun made =
            run({QStringLiteral("generate"), QStringLiteral("--prompt"), prompt, QStringLiteral("--json")});
        EXPECT_EQ(made.status, 0) << made.errors.constData();
        return made.json()[QLatin1String("file")].toString();
    }

    PrivateHome home;
    DemoService service;
    QProcessEnvironment environment;
};

TEST_F(CommandsTest, generateMakesAPictureAndSaysSoInJson)
{
    ASSERT_EQ(run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, "KEY\n").status, 0);
    const CommandRun made = run(
        {QStringLiteral("generate"), QStringLiteral("--prompt"), QStringLiteral("a lake"), QStringLiteral("--json")});
    EXPECT_EQ(made.status, 0);
    const QJsonObject result = made.json().toObject();
    EXPECT_EQ(result.keys(), (QStringList{QStringLiteral("file"), QStringLiteral("isError"), QStringLiteral("original"),
                                          QStringLiteral("status")}));
    EXPECT_EQ(result.value(QLatin1String("status")).toString(), QStringLiteral("Wallpaper set!"));
    EXPECT_FALSE(result.value(QLatin1String("isError")).toBool());
    EXPECT_TRUE(result.value(QLatin1String("original")).isNull());
    EXPECT_EQ(QImage(result.value(QLatin1String("file")).toString()).size(), QSize(8, 8));
    EXPECT_EQ(made.errors, "Wallpaper set!\n");
    // The prompt is kept, and the key reached its header without its line break.
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("lastPrompt")}).output, "a lake\n");
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_EQ(service.requests().first().header("x-goog-api-key"), "KEY");
}

TEST_F(CommandsTest, generateWithoutAKeyEndsWithOne)
{
    const CommandRun failed = run({QStringLiteral("generate")});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(QString::fromUtf8(failed.output), QStringLiteral("Missing Gemini API key — open Settings (⌘,)\n"));
    const CommandRun json = run({QStringLiteral("generate"), QStringLiteral("--json")});
    EXPECT_EQ(json.status, 1);
    EXPECT_TRUE(json.json()[QLatin1String("isError")].toBool());
    EXPECT_TRUE(json.json()[QLatin1String("file")].isNull());
}

TEST_F(CommandsTest, withoutADesktopThePictureIsSavedAndTheStatusIsOne)
{
    environment.remove(QStringLiteral("QUORVANE_WALLPAPER_COMMAND"));
    ASSERT_EQ(run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, "KEY").status, 0);
    const CommandRun made = run({QStringLiteral("generate"), QStringLiteral("--json")});
    EXPECT_EQ(made.status, 1);
    EXPECT_EQ(made.json()[QLatin1String("status")].toString(), QStringLiteral("No screen found"));
    EXPECT_TRUE(QFileInfo::exists(made.json()[QLatin1String("file")].toString()));
}

TEST_F(CommandsTest, aFailingWallpaperCommandIsQuoted)
{
    ASSERT_TRUE(putFile(home.path() + QStringLiteral("/refuse"), "#!/bin/sh\necho 'out of paint' >&2\nexit 3\n"));
    ASSERT_TRUE(QFile::setPermissions(home.path() + QStringLiteral("/refuse"), QFile::ReadOwner | QFile::ExeOwner));
    environment.insert(QStringLiteral("QUORVANE_WALLPAPER_COMMAND"), home.path() + QStringLiteral("/refuse"));
    const QString picture = home.path() + QStringLiteral("/a.png");
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(picture));
    const CommandRun set = run({QStringLiteral("set"), picture});
    EXPECT_EQ(set.status, 1);
    EXPECT_EQ(set.output, "Failed: out of paint\n");
}

TEST_F(CommandsTest, keysAreListedByIdAndNeverPrinted)
{
    EXPECT_EQ(run({QStringLiteral("key"), QStringLiteral("list"), QStringLiteral("--json")}).output, "[]\n");
    ASSERT_EQ(run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("openai")}, "SECRET\n").status, 0);
    ASSERT_EQ(run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("grok")}, "two\n\n").status, 0);
    EXPECT_EQ(run({QStringLiteral("key"), QStringLiteral("list"), QStringLiteral("--json")}).output,
              "[\"grok\",\"openai\"]\n");
    EXPECT_EQ(run({QStringLiteral("key"), QStringLiteral("list")}).output, "grok\nopenai\n");
    const QString file = home.path() + QStringLiteral("/Library/Application Support/Quorvane/keys.json");
    // One trailing line break goes, a second one stays.
    EXPECT_EQ(contentOf(file), "{\"grok\":\"two\\n\",\"openai\":\"SECRET\"}");
    for (const char *command : {"status", "settings", "history", "albums"}) {
        const CommandRun told = run({QLatin1String(command), QStringLiteral("--json")});
        EXPECT_EQ(told.status, 0);
        EXPECT_FALSE(told.output.contains("SECRET") || told.errors.contains("SECRET")) << command;
    }
    EXPECT_EQ(run({QStringLiteral("key"), QStringLiteral("delete"), QStringLiteral("openai")}).status, 0);
    EXPECT_EQ(contentOf(file), "{\"grok\":\"two\\n\"}");
    EXPECT_EQ(run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("grok")}, "\n").status, 1);
    EXPECT_EQ(run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("grok")}, "\xff\xfe").status, 1);
    EXPECT_EQ(
        run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("grok")}, QByteArray(100000, 'k')).status, 1);
    EXPECT_EQ(contentOf(file), "{\"grok\":\"two\\n\"}");
}

TEST_F(CommandsTest, settingsAreReadSetAndRemoved)
{
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("--json")}).output,
              "{\"autoEnabled\":false,\"currentWallpaperPath\":null,\"fourKEnabled\":false,\"intervalMinutes\":30,"
              "\"lastPrompt\":\"\",\"nsfwEnabled\":false,\"providerOverride\":\"auto\","
              "\"selectedModel_gemini\":\"gemini-2.5-flash-image\",\"selectedModel_grok\":\"grok-imagine-image\","
              "\"selectedModel_openai\":\"gpt-image-2\",\"upscaleMethod\":\"gemini\"}\n");
    const QList<std::pair<QString, QString>> good{
        {QStringLiteral("fourKEnabled"), QStringLiteral("true")},
        {QStringLiteral("intervalMinutes"), QStringLiteral("45")},
        {QStringLiteral("providerOverride"), QStringLiteral("grok")},
        {QStringLiteral("upscaleMethod"), QStringLiteral("local")},
        {QStringLiteral("selectedModel_openai"), QStringLiteral("gpt-image-1")},
        {QStringLiteral("lastPrompt"), QStringLiteral("-a \"b\", 水\n")},
    };
    for (const auto &[key, value] : good) {
        EXPECT_EQ(run({QStringLiteral("settings"), key, value}).status, 0) << key.toStdString();
        EXPECT_EQ(QString::fromUtf8(run({QStringLiteral("settings"), key}).output), value + QLatin1Char('\n'));
    }
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("--unset"), QStringLiteral("providerOverride")}).status,
              0);
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("providerOverride"), QStringLiteral("--json")}).output,
              "{\"providerOverride\":\"auto\"}\n");
}

TEST_F(CommandsTest, settingsThatMakeNoSenseAreRefusedAndNothingChanges)
{
    const QList<QStringList> bad{
        {QStringLiteral("fourKEnabled"), QStringLiteral("maybe")},
        {QStringLiteral("intervalMinutes"), QStringLiteral("0")},
        {QStringLiteral("intervalMinutes"), QStringLiteral("-5")},
        {QStringLiteral("intervalMinutes"), QStringLiteral("soon")},
        {QStringLiteral("intervalMinutes"), QStringLiteral("99999999999999999999")},
        {QStringLiteral("providerOverride"), QStringLiteral("nobody")},
        {QStringLiteral("upscaleMethod"), QStringLiteral("magic")},
        {QStringLiteral("selectedModel_gemini"), QStringLiteral("gpt-image-2")},
        {QStringLiteral("apiKey"), QStringLiteral("x")},
        {QStringLiteral("unknown")},
    };
    for (const QStringList &arguments : bad) {
        const CommandRun refused = run(QStringList{QStringLiteral("settings")} + arguments);
        EXPECT_EQ(refused.status, 2) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(refused.output.isEmpty());
        EXPECT_FALSE(refused.errors.isEmpty());
    }
    EXPECT_FALSE(QFile::exists(home.path() + QStringLiteral("/.config/Quorvane/Quorvane.conf")));
}

TEST_F(CommandsTest, statusTellsEverythingThatScriptsRelyOn)
{
    const QJsonObject status = run({QStringLiteral("status"), QStringLiteral("--json")}).json().toObject();
    const QStringList members{
        QStringLiteral("status"),           QStringLiteral("isError"),       QStringLiteral("isLoading"),
        QStringLiteral("provider"),         QStringLiteral("providerName"),  QStringLiteral("model"),
        QStringLiteral("producesNative4K"), QStringLiteral("nsfwApplies"),   QStringLiteral("missingKeys"),
        QStringLiteral("prompt"),           QStringLiteral("fourKEnabled"),  QStringLiteral("nsfwEnabled"),
        QStringLiteral("providerOverride"), QStringLiteral("upscaleMethod"), QStringLiteral("autoEnabled"),
        QStringLiteral("intervalMinutes"),  QStringLiteral("interval"),      QStringLiteral("nextFireDate"),
        QStringLiteral("currentWallpaper"), QStringLiteral("desktop"),       QStringLiteral("screens")};
    for (const QString &member : members) {
        EXPECT_TRUE(status.contains(member)) << member.toStdString();
    }
    EXPECT_EQ(status.value(QLatin1String("missingKeys")).toArray(), QJsonArray{QStringLiteral("Gemini")});
    EXPECT_EQ(status.value(QLatin1String("interval")).toString(), QStringLiteral("30 min"));
    EXPECT_EQ(status.value(QLatin1String("desktop")).toString(), QStringLiteral("command"));
    EXPECT_TRUE(status.value(QLatin1String("nextFireDate")).isNull());
    EXPECT_TRUE(run({QStringLiteral("status")}).output.contains("Gemini"));
}

TEST_F(CommandsTest, historyAlbumsAndFavouritesFollowTheLibrary)
{
    const QString path = generate(QStringLiteral("a lake"));
    const QString name = QFileInfo(path).fileName();
    QJsonObject image = run({QStringLiteral("history"), QStringLiteral("--json")}).json()[0].toObject();
    EXPECT_EQ(image.value(QLatin1String("file")).toString(), name);
    EXPECT_EQ(image.value(QLatin1String("path")).toString(), path);
    EXPECT_EQ(image.value(QLatin1String("prompt")).toString(), QStringLiteral("a lake"));
    EXPECT_FALSE(image.value(QLatin1String("favorite")).toBool(true));
    EXPECT_TRUE(image.value(QLatin1String("variant")).isNull());
    EXPECT_TRUE(QDateTime::fromString(image.value(QLatin1String("created")).toString(), Qt::ISODateWithMs).isValid());

    // A bare name, a path and a relative path mean the same picture.
    EXPECT_EQ(run({QStringLiteral("favorite"), name}).status, 0);
    image = run({QStringLiteral("history"), QStringLiteral("--json")}).json()[0].toObject();
    EXPECT_TRUE(image.value(QLatin1String("favorite")).toBool());
    const QJsonValue albums = run({QStringLiteral("albums"), QStringLiteral("--json")}).json();
    EXPECT_EQ(albums.toArray().size(), 2);
    EXPECT_TRUE(albums[0][QLatin1String("isFavorites")].toBool());
    EXPECT_EQ(albums[1][QLatin1String("id")].toString(), QStringLiteral("a lake"));
    EXPECT_EQ(albums[1][QLatin1String("images")].toArray(), QJsonArray{name});
    EXPECT_EQ(run({QStringLiteral("favorite"), QStringLiteral("Pictures/Quorvane/") + name}).status, 0);
    EXPECT_EQ(contentOf(home.library() + QStringLiteral("/favorites.json")), "[]");

    EXPECT_EQ(run({QStringLiteral("delete"), name}).status, 0);
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_EQ(run({QStringLiteral("history"), QStringLiteral("--json")}).output, "[]\n");
    EXPECT_EQ(contentOf(home.library() + QStringLiteral("/prompts.json")), "{}");
}

TEST_F(CommandsTest, onlyPicturesOfTheLibraryAreEverDeletedOrMarked)
{
    const QString outside = home.path() + QStringLiteral("/mine.png");
    ASSERT_TRUE(putFile(outside));
    ASSERT_TRUE(putFile(home.library() + QStringLiteral("/prompts.json"), "{}"));
    for (const char *command : {"delete", "favorite"}) {
        for (const QString &file :
             {outside, QStringLiteral("mine.png"), QStringLiteral("prompts.json"), QStringLiteral("."),
              QStringLiteral("../Quorvane"), QStringLiteral("gone.png"), QString()}) {
            EXPECT_EQ(run({QLatin1String(command), file}).status, 1) << command << " " << file.toStdString();
        }
    }
    EXPECT_TRUE(QFile::exists(outside));
    EXPECT_TRUE(QFile::exists(home.library() + QStringLiteral("/prompts.json")));
    EXPECT_FALSE(QFile::exists(home.library() + QStringLiteral("/favorites.json")));
}

TEST_F(CommandsTest, setTakesPathsAndNamesAndRemembersTheWallpaper)
{
    const QString path = generate(QStringLiteral("a lake"));
    const QString mine = home.path() + QStringLiteral("/my picture.png");
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(mine));
    EXPECT_EQ(run({QStringLiteral("set"), QStringLiteral("my picture.png"), QStringLiteral("--json")})
                  .json()[QLatin1String("file")],
              QJsonValue(mine));
    EXPECT_EQ(run({QStringLiteral("status"), QStringLiteral("--json")}).json()[QLatin1String("currentWallpaper")],
              QJsonValue(mine));
    EXPECT_EQ(run({QStringLiteral("set"), QFileInfo(path).fileName()}).output, "Wallpaper set!\n");
    EXPECT_EQ(run({QStringLiteral("status"), QStringLiteral("--json")}).json()[QLatin1String("currentWallpaper")],
              QJsonValue(path));
    EXPECT_EQ(run({QStringLiteral("set"), QStringLiteral("gone.png")}).status, 1);
}

TEST_F(CommandsTest, upscaleMakesACopyThroughTheService)
{
    const QString path = generate(QStringLiteral("a lake"));
    // The copy must not be made in the second that named its source.
    QImage source(16, 9, QImage::Format_RGB32);
    source.fill(Qt::red);
    const QString older = home.library() + QStringLiteral("/older.png");
    ASSERT_TRUE(source.save(older));
    const CommandRun made = run({QStringLiteral("upscale"), QStringLiteral("older.png"), QStringLiteral("--json")});
    EXPECT_EQ(made.status, 0) << made.errors.constData();
    EXPECT_EQ(made.json()[QLatin1String("original")], QJsonValue(older));
    const QString copy = made.json()[QLatin1String("file")].toString();
    EXPECT_EQ(QImage(copy).width(), 3840);
    EXPECT_TRUE(made.errors.startsWith("Upscaling to 4K...\n"));
    const QJsonValue newest = run({QStringLiteral("history"), QStringLiteral("--json")}).json()[0];
    EXPECT_EQ(newest[QLatin1String("variant")].toString(), QStringLiteral("older.png"));
    EXPECT_TRUE(QFile::exists(path) || path == copy);
}

TEST_F(CommandsTest, withoutANetworkLocalUpscalingSaysSo)
{
    const CommandRun none = run({QStringLiteral("model")});
    EXPECT_EQ(none.status, 1);
    EXPECT_TRUE(none.errors.contains("RealESRGAN model not found in app bundle"));
    EXPECT_TRUE(run({QStringLiteral("model"), QStringLiteral("--json")}).json()[QLatin1String("file")].isNull());
    EXPECT_EQ(run({QStringLiteral("model"), QStringLiteral("install"), QStringLiteral("/etc/passwd")}).status, 1);
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("upscaleMethod"), QStringLiteral("local")}).status, 0);
    QImage source(16, 9, QImage::Format_RGB32);
    source.fill(Qt::red);
    const QString picture = home.path() + QStringLiteral("/a.png");
    ASSERT_TRUE(source.save(picture));
    const CommandRun failed = run({QStringLiteral("upscale"), picture});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.output, "Upscale failed: Invalid response: RealESRGAN model not found in app bundle\n");
}

TEST_F(CommandsTest, autoAndAutostartAreSwitches)
{
    EXPECT_EQ(run({QStringLiteral("auto"), QStringLiteral("on")}).status, 0);
    EXPECT_TRUE(
        run({QStringLiteral("status"), QStringLiteral("--json")}).json()[QLatin1String("autoEnabled")].toBool());
    EXPECT_EQ(run({QStringLiteral("auto"), QStringLiteral("off")}).status, 0);
    EXPECT_FALSE(
        run({QStringLiteral("status"), QStringLiteral("--json")}).json()[QLatin1String("autoEnabled")].toBool(true));

    const QString entry = home.path() + QStringLiteral("/.config/autostart/app.quorvane.Quorvane.desktop");
    EXPECT_EQ(run({QStringLiteral("autostart"), QStringLiteral("on")}).status, 0);
    EXPECT_TRUE(contentOf(entry).contains("\nExec=\"" QUORVANE_PROGRAM "\" --hidden\n"))
        << contentOf(entry).constData();
    EXPECT_EQ(run({QStringLiteral("autostart"), QStringLiteral("off")}).status, 0);
    EXPECT_FALSE(QFile::exists(entry));
    EXPECT_EQ(run({QStringLiteral("autostart"), QStringLiteral("off")}).status, 0);
}

TEST_F(CommandsTest, theSystemsProxyIsAsked)
{
    QTcpServer proxy;
    ASSERT_TRUE(proxy.listen(QHostAddress::LocalHost));
    environment.insert(QStringLiteral("https_proxy"), QStringLiteral("http://127.0.0.1:%1").arg(proxy.serverPort()));
    environment.insert(QStringLiteral("QUORVANE_GEMINI_BASE_URL"), QStringLiteral("https://service.example"));
    ASSERT_EQ(run({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("gemini")}, "KEY").status, 0);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(QUORVANE_PROGRAM), {QStringLiteral("generate")});
    ASSERT_TRUE(proxy.waitForNewConnection(10000));
    const std::unique_ptr<QTcpSocket> connection(proxy.nextPendingConnection());
    ASSERT_TRUE(connection->waitForReadyRead(10000));
    const QByteArray asked = connection->readAll();
    EXPECT_TRUE(asked.startsWith("CONNECT service.example:443 ")) << asked.constData();
    EXPECT_FALSE(asked.contains("KEY"));
    connection->write("HTTP/1.1 502 Bad Gateway\r\nContent-Length: 0\r\n\r\n");
    connection->waitForBytesWritten();
    connection->disconnectFromHost();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_TRUE(process.readAllStandardOutput().startsWith("Network error: "));
}

TEST_F(CommandsTest, theEnvironmentNamesTheLanguage)
{
    using Variables = std::vector<std::pair<const char *, const char *>>;
    const char *german = "Aufruf: quorvane";
    const char *english = "Usage: quorvane";
    const char *french = "Utilisation\u00a0: quorvane";
    const char *spanish = "Uso: quorvane";
    // None of these locales needs to be installed on the system.
    const std::vector<std::pair<Variables, const char *>> cases{
        {{{"LC_ALL", "de_AT.UTF-8"}, {"LANG", "fr_FR.UTF-8"}}, german},
        {{{"LC_MESSAGES", "es_MX.UTF-8"}, {"LANG", "de_DE.UTF-8"}}, spanish},
        {{{"LANG", "fr_FR.UTF-8"}}, french},
        {{{"LANG", "ja_JP.UTF-8"}}, "使い方: quorvane"},
        {{{"LANG", "zh_CN.UTF-8"}}, "用法：quorvane"},
        {{{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "fr_CA:de"}}, french},
        {{{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "en_GB:de"}}, english},
        {{{"LANG", "pt_BR.UTF-8"}, {"LANGUAGE", "pt_BR:es:en"}}, spanish},
        {{{"LANG", "ar_EG.UTF-8"}}, english},
        // "C" is English whatever else is said, so that a script that asks for it can rely on it.
        {{{"LC_ALL", "C"}, {"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "de"}}, english},
        {{{"LC_ALL", "C.UTF-8"}, {"LANGUAGE", "de"}}, english},
        {{{"LC_ALL", "POSIX"}, {"LANGUAGE", "de"}}, english},
        {{{"LANGUAGE", "de"}}, english},
        {{}, english},
    };
    for (const auto &[variables, beginning] : cases) {
        for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"}) {
            environment.remove(QLatin1String(name));
        }
        for (const auto &[name, value] : variables) {
            environment.insert(QLatin1String(name), QLatin1String(value));
        }
        const CommandRun said = run({QStringLiteral("--help")});
        EXPECT_TRUE(said.output.startsWith(beginning))
            << environment.toStringList().join(QLatin1Char(' ')).toStdString() << '\n'
            << said.output.left(40).constData();
    }
}

TEST_F(CommandsTest, whatScriptsReadIsTheSameInEveryLanguage)
{
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("de_DE.UTF-8"));
    const CommandRun failed = run({QStringLiteral("generate"), QStringLiteral("--json")});
    EXPECT_EQ(failed.status, 1);
    EXPECT_TRUE(failed.json()[QLatin1String("isError")].toBool());
    EXPECT_EQ(failed.json()[QLatin1String("status")].toString(),
              QStringLiteral("API-Schlüssel für Gemini fehlt – öffnen Sie die Einstellungen (⌘,)"));
    const CommandRun wrong = run({QStringLiteral("bilden")});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_EQ(wrong.errors, "quorvane: unbekannter Befehl bilden\n");

    // Not even the names of files follow a locale with other digits.
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("fa_IR.UTF-8"));
    const QString path = generate(QStringLiteral("a lake"));
    const QRegularExpression name(
        QStringLiteral("/wallpaper_20[0-9]{2}-[0-9]{2}-[0-9]{2}_[0-9]{2}-[0-9]{2}-[0-9]{2}\\.(png|jpg)$"));
    EXPECT_TRUE(name.match(path).hasMatch()) << path.toStdString();
    const QJsonObject status = run({QStringLiteral("status"), QStringLiteral("--json")}).json().toObject();
    EXPECT_EQ(status.value(QLatin1String("provider")).toString(), QStringLiteral("gemini"));
    EXPECT_EQ(status.value(QLatin1String("currentWallpaper")).toString(), path);
}

TEST_F(CommandsTest, aWrongCommandLineEndsWithTwoAndDoesNothing)
{
    for (const QStringList &arguments : {QStringList{QStringLiteral("paint")},
                                         {QStringLiteral("--loud")},
                                         {QStringLiteral("set")},
                                         {QStringLiteral("generate"), QStringLiteral("extra")},
                                         {QStringLiteral("key"), QStringLiteral("set")},
                                         {QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("nobody")}}) {
        const CommandRun refused = run(arguments);
        EXPECT_EQ(refused.status, 2) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(refused.errors.startsWith("quorvane: "));
        EXPECT_TRUE(refused.output.isEmpty());
    }
    EXPECT_EQ(run({QStringLiteral("--help")}).status, 0);
    EXPECT_TRUE(run({QStringLiteral("--version")}).output.startsWith("quorvane "));
    EXPECT_FALSE(QFile::exists(home.library()));
}

} // namespace quorvane
