// The program as scripts use it: real runs, in a home of their own, with the demonstration service.

#include "Support/CommandRun.h"
#include "Support/Files.h"
#include "Support/PrivateHome.h"
#include "Support/SmallDisk.h"
#include "demo-service/DemoService.h"

#include <QImage>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

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
        environment = lonelyEnvironment(service.baseAddress().toString());
        environment.insert(u"XDG_DATA_DIRS"_s, u"/nonexistent"_s);
    }

    [[nodiscard]] CommandRun run(const QStringList &arguments, const QByteArray &input = {}) const
    {
        return runQuorvane(arguments, environment, input, home.path());
    }

    /// Generates one picture and returns its path.
    QString generate(const QString &prompt)
    {
        (void)run({u"key"_s, u"set"_s, u"gemini"_s}, "KEY");
        const CommandRun made = run({u"generate"_s, u"--prompt"_s, prompt, u"--json"_s});
        EXPECT_EQ(made.status, 0) << made.errors.constData();
        return made.json()["file"_L1].toString();
    }

    PrivateHome home;
    DemoService service;
    QProcessEnvironment environment;
};

TEST_F(CommandsTest, generateMakesAPictureAndSaysSoInJson)
{
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"gemini"_s}, "KEY\n").status, 0);
    const CommandRun made = run({u"generate"_s, u"--prompt"_s, u"a lake"_s, u"--json"_s});
    EXPECT_EQ(made.status, 0);
    const QJsonObject result = made.json().toObject();
    for (const QString &member : {u"file"_s, u"isError"_s, u"original"_s, u"status"_s}) {
        EXPECT_TRUE(result.contains(member)) << member.toStdString();
    }
    EXPECT_EQ(result.value("status"_L1).toString(), u"Wallpaper set!"_s);
    EXPECT_FALSE(result.value("isError"_L1).toBool());
    EXPECT_TRUE(result.value("original"_L1).isNull());
    EXPECT_EQ(QImage(result.value("file"_L1).toString()).size(), QSize(8, 8));
    EXPECT_EQ(made.errors, "Wallpaper set!\n");
    // The prompt is kept, and the key reached its header without its line break.
    EXPECT_EQ(run({u"settings"_s, u"lastPrompt"_s}).output, "a lake\n");
    ASSERT_EQ(service.requests().size(), 1);
    EXPECT_EQ(service.requests().first().header("x-goog-api-key"), "KEY");
}

TEST_F(CommandsTest, generateWithoutAKeyEndsWithOne)
{
    const CommandRun failed = run({u"generate"_s});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(QString::fromUtf8(failed.output), u"Missing Gemini API key — open Settings (⌘,)\n"_s);
    const CommandRun json = run({u"generate"_s, u"--json"_s});
    EXPECT_EQ(json.status, 1);
    EXPECT_TRUE(json.json()["isError"_L1].toBool());
    EXPECT_TRUE(json.json()["file"_L1].isNull());
}

TEST_F(CommandsTest, withoutADesktopThePictureIsSavedAndTheStatusIsOne)
{
    environment.remove(u"QUORVANE_WALLPAPER_COMMAND"_s);
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    const CommandRun made = run({u"generate"_s, u"--json"_s});
    EXPECT_EQ(made.status, 1);
    EXPECT_EQ(made.json()["status"_L1].toString(), u"No screen found"_s);
    EXPECT_TRUE(QFileInfo::exists(made.json()["file"_L1].toString()));
}

TEST_F(CommandsTest, aFailingWallpaperCommandIsQuoted)
{
    ASSERT_TRUE(putFile(home.path() + u"/refuse"_s, "#!/bin/sh\necho 'out of paint' >&2\nexit 3\n"));
    ASSERT_TRUE(QFile::setPermissions(home.path() + u"/refuse"_s, QFile::ReadOwner | QFile::ExeOwner));
    environment.insert(u"QUORVANE_WALLPAPER_COMMAND"_s, home.path() + u"/refuse"_s);
    const QString picture = home.path() + u"/a.png"_s;
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(picture));
    const CommandRun set = run({u"set"_s, picture});
    EXPECT_EQ(set.status, 1);
    EXPECT_EQ(set.output, "Failed: out of paint\n");
}

TEST_F(CommandsTest, keysAreListedByIdAndNeverPrinted)
{
    EXPECT_EQ(run({u"key"_s, u"list"_s, u"--json"_s}).output, "[]\n");
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"openai"_s}, "SECRET\n").status, 0);
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, "two\n\n").status, 0);
    EXPECT_EQ(run({u"key"_s, u"list"_s, u"--json"_s}).output, "[\"grok\",\"openai\"]\n");
    EXPECT_EQ(run({u"key"_s, u"list"_s}).output, "grok\nopenai\n");
    const QString file = home.path() + u"/Library/Application Support/Quorvane/keys.json"_s;
    // One trailing line break goes, a second one stays.
    EXPECT_EQ(contentOf(file), "{\"grok\":\"two\\n\",\"openai\":\"SECRET\"}");
    for (const char *command : {"status", "settings", "history", "albums"}) {
        const CommandRun told = run({QLatin1String(command), u"--json"_s});
        EXPECT_EQ(told.status, 0);
        EXPECT_FALSE(told.output.contains("SECRET") || told.errors.contains("SECRET")) << command;
    }
    EXPECT_EQ(run({u"key"_s, u"delete"_s, u"openai"_s}).status, 0);
    EXPECT_EQ(contentOf(file), "{\"grok\":\"two\\n\"}");
    EXPECT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, "\n").status, 1);
    EXPECT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, "\xff\xfe").status, 1);
    EXPECT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, QByteArray(100000, 'k')).status, 1);
    EXPECT_EQ(contentOf(file), "{\"grok\":\"two\\n\"}");
}

TEST_F(CommandsTest, settingsAreReadSetAndRemoved)
{
    EXPECT_EQ(run({u"settings"_s, u"--json"_s}).output,
              "{\"autoEnabled\":false,\"currentWallpaperPath\":null,\"fourKEnabled\":false,\"intervalMinutes\":30,"
              "\"lastPrompt\":\"\",\"nsfwEnabled\":false,\"providerOverride\":\"auto\","
              "\"selectedModel_gemini\":\"gemini-2.5-flash-image\",\"selectedModel_grok\":\"grok-imagine-image\","
              "\"selectedModel_openai\":\"gpt-image-2\",\"upscaleMethod\":\"gemini\"}\n");
    const QList<std::pair<QString, QString>> good{
        {u"fourKEnabled"_s, u"true"_s},
        {u"intervalMinutes"_s, u"45"_s},
        {u"providerOverride"_s, u"grok"_s},
        {u"upscaleMethod"_s, u"local"_s},
        {u"selectedModel_openai"_s, u"gpt-image-1"_s},
        {u"lastPrompt"_s, u"-a \"b\", 水\n"_s},
    };
    for (const auto &[key, value] : good) {
        EXPECT_EQ(run({u"settings"_s, key, value}).status, 0) << key.toStdString();
        EXPECT_EQ(QString::fromUtf8(run({u"settings"_s, key}).output), value + '\n'_L1);
    }
    EXPECT_EQ(run({u"settings"_s, u"--unset"_s, u"providerOverride"_s}).status, 0);
    EXPECT_EQ(run({u"settings"_s, u"providerOverride"_s, u"--json"_s}).output, "{\"providerOverride\":\"auto\"}\n");
}

TEST_F(CommandsTest, settingsThatMakeNoSenseAreRefusedAndNothingChanges)
{
    const QList<QStringList> bad{
        {u"fourKEnabled"_s, u"maybe"_s},
        {u"intervalMinutes"_s, u"0"_s},
        {u"intervalMinutes"_s, u"-5"_s},
        {u"intervalMinutes"_s, u"soon"_s},
        {u"intervalMinutes"_s, u"99999999999999999999"_s},
        {u"providerOverride"_s, u"nobody"_s},
        {u"upscaleMethod"_s, u"magic"_s},
        {u"currentWallpaperPath"_s, u"lake.png"_s},
        {u"currentWallpaperPath"_s, QString()},
        {u"selectedModel_gemini"_s, u"gpt-image-2"_s},
        {u"apiKey"_s, u"x"_s},
        {u"unknown"_s},
    };
    for (const QStringList &arguments : bad) {
        const CommandRun refused = run(QStringList{u"settings"_s} + arguments);
        EXPECT_EQ(refused.status, 2) << arguments.join(' '_L1).toStdString();
        EXPECT_TRUE(refused.output.isEmpty());
        EXPECT_FALSE(refused.errors.isEmpty());
    }
    EXPECT_FALSE(QFile::exists(home.path() + u"/.config/Quorvane/Quorvane.conf"_s));
}

TEST_F(CommandsTest, aFullDiskLosesNoSettingAndIsTold)
{
    const QString folder = home.path() + u"/.config/Quorvane"_s;
    const SmallDisk disk(folder, "size=64k");
    if (!disk.isMounted()) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    ASSERT_EQ(run({u"settings"_s, u"lastPrompt"_s, u"a lake"_s}).status, 0);
    const QByteArray before = contentOf(folder + u"/Quorvane.conf"_s);
    QFile ballast(folder + u"/ballast"_s);
    ASSERT_TRUE(ballast.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (ballast.write(QByteArray(512, 'x')) > 0) {
    }
    const QString words = u"could not write %1/Quorvane.conf: No space left on device"_s.arg(folder);
    const CommandRun told = run({u"settings"_s, u"nsfwEnabled"_s, u"true"_s});
    EXPECT_EQ(told.status, 1);
    EXPECT_EQ(QString::fromUtf8(told.errors), u"quorvane: "_s + words + u"\n"_s);
    EXPECT_EQ(run({u"auto"_s, u"on"_s}).status, 1);
    EXPECT_EQ(contentOf(folder + u"/Quorvane.conf"_s), before);

    // A picture is set all the same, and what was not kept is a note beside it.
    const QString picture = home.path() + u"/a.png"_s;
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(picture));
    const CommandRun set = run({u"set"_s, picture, u"--json"_s});
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.json()["status"_L1].toString(), u"Wallpaper set!"_s);
    EXPECT_EQ(set.json()["problems"_L1].toArray(), QJsonArray{words});
    EXPECT_TRUE(set.errors.contains("quorvane: " + words.toUtf8() + '\n')) << set.errors.constData();
    EXPECT_EQ(contentOf(folder + u"/Quorvane.conf"_s), before);
}

TEST_F(CommandsTest, whatChangesNoSettingWritesNone)
{
    const QString path = generate(u"a lake"_s);
    const QString file = home.path() + u"/.config/Quorvane/Quorvane.conf"_s;
    const auto inode = [&file] {
        struct stat status = {};
        return ::stat(QFile::encodeName(file).constData(), &status) == 0 ? status.st_ino : 0;
    };
    const ino_t before = inode();
    ASSERT_NE(before, 0U);
    for (const QStringList &arguments : {QStringList{u"favorite"_s, path},
                                         {u"status"_s},
                                         {u"set"_s, path},
                                         {u"settings"_s, u"lastPrompt"_s, u"a lake"_s}}) {
        EXPECT_EQ(run(arguments).status, 0);
        EXPECT_EQ(inode(), before) << arguments.join(' '_L1).toStdString();
    }
}

TEST_F(CommandsTest, settingsThatCannotBeReadAreToldAndNotReplaced)
{
    // A folder in the file's place: even root cannot read it as a file.
    const QString file = home.path() + u"/.config/Quorvane/Quorvane.conf"_s;
    ASSERT_TRUE(QDir().mkpath(file));
    const CommandRun all = run({u"settings"_s});
    EXPECT_EQ(all.status, 0);
    EXPECT_TRUE(all.errors.startsWith("quorvane: could not read ")) << all.errors.constData();
    EXPECT_EQ(run({u"settings"_s, u"nsfwEnabled"_s, u"true"_s}).status, 1);
    EXPECT_TRUE(QFileInfo(file).isDir());
}

TEST_F(CommandsTest, withoutAHomeNothingIsDone)
{
    // In a world of users where nobody has a name, and so no home.
    const QStringList nobody{u"--user"_s, QStringLiteral(QUORVANE_PROGRAM)};
    environment.remove(u"HOME"_s);
    QProcess probe;
    probe.start(u"unshare"_s, {u"--user"_s, u"true"_s});
    if (!probe.waitForFinished() || probe.exitCode() != 0) {
        GTEST_SKIP() << "users cannot be kept apart here";
    }
    for (const QStringList &arguments : {QStringList{u"status"_s},
                                         {u"key"_s, u"list"_s},
                                         {u"model"_s},
                                         {u"--hidden"_s},
                                         {u"history"_s, u"--json"_s}}) {
        for (const QString &told : {QString(), u"relative"_s}) {
            environment.insert(u"HOME"_s, told);
            QProcess process;
            process.setProcessEnvironment(environment);
            process.start(u"unshare"_s, nobody + arguments);
            ASSERT_TRUE(process.waitForFinished());
            EXPECT_EQ(process.exitCode(), 1) << arguments.join(' '_L1).toStdString();
            EXPECT_EQ(process.readAllStandardError(),
                      "quorvane: there is no home folder: HOME names none, and the account has none\n");
            EXPECT_EQ(process.readAllStandardOutput().isEmpty(), !arguments.contains(u"--json"_s));
        }
    }
}

TEST_F(CommandsTest, aKeyThatIsNotKeptIsTold)
{
    const QString folder = home.path() + u"/Library/Application Support/Quorvane"_s;
    const SmallDisk disk(folder, "size=8k");
    if (!disk.isMounted()) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"grok"_s}, "OLD").status, 0);
    QFile ballast(folder + u"/ballast"_s);
    ASSERT_TRUE(ballast.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (ballast.write(QByteArray(512, 'x')) > 0) {
    }
    for (const QStringList &change : {QStringList{u"set"_s, u"gemini"_s}, {u"delete"_s, u"grok"_s}}) {
        const CommandRun told = run(QStringList{u"key"_s} + change, "SECRET");
        EXPECT_EQ(told.status, 1) << change.first().toStdString();
        EXPECT_TRUE(told.errors.contains("No space left on device")) << told.errors.constData();
        EXPECT_FALSE(told.errors.contains("SECRET") || told.errors.contains("OLD"));
    }
    EXPECT_EQ(contentOf(folder + u"/keys.json"_s), "{\"grok\":\"OLD\"}");
}

TEST_F(CommandsTest, jsonIsOneValueInEveryCase)
{
    const QList<std::pair<QStringList, int>> failing{
        {{u"set"_s, u"gone.png"_s}, 1},
        {{u"upscale"_s, u"gone.png"_s}, 1},
        {{u"favorite"_s, u"gone.png"_s}, 1},
        {{u"delete"_s, u"gone.png"_s}, 1},
        {{u"key"_s, u"set"_s, u"grok"_s}, 1},
        {{u"model"_s}, 1},
        {{u"model"_s, u"install"_s, u"/etc/passwd"_s}, 1},
        {{u"quit"_s}, 1},
        {{u"generate"_s}, 1},
        {{u"settings"_s, u"unknown"_s}, 2},
        {{u"settings"_s, u"intervalMinutes"_s, u"soon"_s}, 2},
        {{u"paint"_s}, 2},
        {{u"set"_s}, 2},
    };
    for (const auto &[arguments, status] : failing) {
        const CommandRun failed = run(arguments + QStringList{u"--json"_s});
        EXPECT_EQ(failed.status, status) << arguments.join(' '_L1).toStdString();
        const QJsonValue value = failed.json();
        EXPECT_TRUE(value["isError"_L1].toBool()) << arguments.join(' '_L1).toStdString();
        EXPECT_FALSE(value["status"_L1].toString().isEmpty()) << arguments.join(' '_L1).toStdString();
    }
}

TEST_F(CommandsTest, aKeyThatTheServiceQuotesIsShownToNobody)
{
    const QByteArray key = "sk-1234567890abcdef";
    for (const QString &provider : {u"gemini"_s, u"grok"_s}) {
        ASSERT_EQ(run({u"key"_s, u"set"_s, provider}, key).status, 0);
        ASSERT_EQ(run({u"settings"_s, u"providerOverride"_s, provider}).status, 0);
        Misbehaviour quoting(Misbehaviour::Kind::ErrorObject);
        quoting.text = "the key " + key + " is not known";
        service.setMisbehaviour(quoting);
        for (const QStringList &more : {QStringList(), QStringList(u"--json"_s)}) {
            const CommandRun failed = run(QStringList{u"generate"_s, u"--prompt"_s, u"a lake"_s} + more);
            EXPECT_EQ(failed.status, 1);
            EXPECT_TRUE((failed.output + failed.errors).contains("the key … is not known"))
                << failed.errors.constData();
            EXPECT_FALSE((failed.output + failed.errors).contains(key));
        }
    }
}

TEST_F(CommandsTest, aLimitOnTheSizeOfFilesIsAnErrorAndNoEndOfTheProgram)
{
    service.setPictureMaker([](const QString & /*prompt*/, QSize /*size*/) {
        QImage image(64, 64, QImage::Format_RGB32);
        for (int pixel = 0; pixel < 64 * 64; ++pixel) {
            image.setPixel(pixel % 64, pixel / 64, QRgb(pixel) * 2654435761U); // Does not compress.
        }
        return image;
    });
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    // 512 bytes: enough for what else is kept.
    const CommandRun made = runProgram(u"/bin/sh"_s,
                                       {u"-c"_s, u"ulimit -f 1; exec \"$0\" \"$@\""_s, QStringLiteral(QUORVANE_PROGRAM),
                                        u"generate"_s, u"--json"_s, u"--prompt"_s, u"a lake"_s},
                                       environment, {}, home.path());
    EXPECT_EQ(made.status, 1);
    EXPECT_TRUE(made.json()["isError"_L1].toBool());
    EXPECT_FALSE(made.json()["status"_L1].toString().isEmpty());
}

TEST_F(CommandsTest, theWordsOfAServiceAreOnlyRead)
{
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    Misbehaviour hostile(Misbehaviour::Kind::ErrorObject);
    hostile.text = "no\x1b[2J\nWallpaper set!\x9b";
    service.setMisbehaviour(hostile);
    const CommandRun failed = run({u"generate"_s});
    EXPECT_EQ(failed.status, 1);
    for (const QByteArray &stream : {failed.output, failed.errors}) {
        EXPECT_EQ(stream.count('\n'), 1) << stream.constData();
        EXPECT_FALSE(stream.contains('\x1b')) << stream.constData();
        EXPECT_TRUE(stream.contains("no␛[2J␊Wallpaper set!")) << stream.constData();
    }
    // For programs the text is whole.
    EXPECT_TRUE(run({u"generate"_s, u"--json"_s}).json()["status"_L1].toString().contains(u"no\x1b[2J\nWallpaper"_s));
}

TEST_F(CommandsTest, statusTellsEverythingThatScriptsRelyOn)
{
    const QJsonObject status = run({u"status"_s, u"--json"_s}).json().toObject();
    const QStringList members{u"status"_s,           u"isError"_s,       u"isLoading"_s,        u"provider"_s,
                              u"providerName"_s,     u"model"_s,         u"producesNative4K"_s, u"nsfwApplies"_s,
                              u"missingKeys"_s,      u"prompt"_s,        u"fourKEnabled"_s,     u"nsfwEnabled"_s,
                              u"providerOverride"_s, u"upscaleMethod"_s, u"autoEnabled"_s,      u"intervalMinutes"_s,
                              u"interval"_s,         u"nextFireDate"_s,  u"currentWallpaper"_s, u"desktop"_s,
                              u"screens"_s};
    for (const QString &member : members) {
        EXPECT_TRUE(status.contains(member)) << member.toStdString();
    }
    EXPECT_EQ(status.value("missingKeys"_L1).toArray(), QJsonArray{u"Gemini"_s});
    EXPECT_EQ(status.value("interval"_L1).toString(), u"30 min"_s);
    EXPECT_EQ(status.value("desktop"_L1).toString(), u"command"_s);
    EXPECT_TRUE(status.value("nextFireDate"_L1).isNull());
    EXPECT_TRUE(run({u"status"_s}).output.contains("Gemini"));
}

TEST_F(CommandsTest, historyAlbumsAndFavouritesFollowTheLibrary)
{
    const QString path = generate(u"a lake"_s);
    const QString name = QFileInfo(path).fileName();
    QJsonObject image = run({u"history"_s, u"--json"_s}).json()[0].toObject();
    EXPECT_EQ(image.value("file"_L1).toString(), name);
    EXPECT_EQ(image.value("path"_L1).toString(), path);
    EXPECT_EQ(image.value("prompt"_L1).toString(), u"a lake"_s);
    EXPECT_FALSE(image.value("favorite"_L1).toBool(true));
    EXPECT_TRUE(image.value("variant"_L1).isNull());
    EXPECT_TRUE(QDateTime::fromString(image.value("created"_L1).toString(), Qt::ISODateWithMs).isValid());

    // A bare name, a path and a relative path mean the same picture.
    EXPECT_EQ(run({u"favorite"_s, name}).status, 0);
    image = run({u"history"_s, u"--json"_s}).json()[0].toObject();
    EXPECT_TRUE(image.value("favorite"_L1).toBool());
    const QJsonValue albums = run({u"albums"_s, u"--json"_s}).json();
    EXPECT_EQ(albums.toArray().size(), 2);
    EXPECT_TRUE(albums[0]["isFavorites"_L1].toBool());
    EXPECT_EQ(albums[1]["id"_L1].toString(), u"a lake"_s);
    EXPECT_EQ(albums[1]["images"_L1].toArray(), QJsonArray{name});
    EXPECT_EQ(run({u"favorite"_s, u"Pictures/Quorvane/"_s + name}).status, 0);
    EXPECT_EQ(contentOf(home.library() + u"/favorites.json"_s), "[]");

    EXPECT_EQ(run({u"delete"_s, name}).status, 0);
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_EQ(run({u"history"_s, u"--json"_s}).output, "[]\n");
    EXPECT_EQ(contentOf(home.library() + u"/prompts.json"_s), "{}");
}

TEST_F(CommandsTest, onlyPicturesOfTheLibraryAreEverDeletedOrMarked)
{
    const QString outside = home.path() + u"/mine.png"_s;
    ASSERT_TRUE(putFile(outside));
    ASSERT_TRUE(putFile(home.library() + u"/prompts.json"_s, "{}"));
    for (const char *command : {"delete", "favorite"}) {
        for (const QString &file :
             {outside, u"mine.png"_s, u"prompts.json"_s, u"."_s, u"../Quorvane"_s, u"gone.png"_s, QString()}) {
            EXPECT_EQ(run({QLatin1String(command), file}).status, 1) << command << " " << file.toStdString();
        }
    }
    EXPECT_TRUE(QFile::exists(outside));
    EXPECT_TRUE(QFile::exists(home.library() + u"/prompts.json"_s));
    EXPECT_FALSE(QFile::exists(home.library() + u"/favorites.json"_s));
}

TEST_F(CommandsTest, setTakesPathsAndNamesAndRemembersTheWallpaper)
{
    const QString path = generate(u"a lake"_s);
    const QString mine = home.path() + u"/my picture.png"_s;
    ASSERT_TRUE(QImage(4, 4, QImage::Format_RGB32).save(mine));
    EXPECT_EQ(run({u"set"_s, u"my picture.png"_s, u"--json"_s}).json()["file"_L1], QJsonValue(mine));
    EXPECT_EQ(run({u"status"_s, u"--json"_s}).json()["currentWallpaper"_L1], QJsonValue(mine));
    EXPECT_EQ(run({u"set"_s, QFileInfo(path).fileName()}).output, "Wallpaper set!\n");
    EXPECT_EQ(run({u"status"_s, u"--json"_s}).json()["currentWallpaper"_L1], QJsonValue(path));
    EXPECT_EQ(run({u"set"_s, u"gone.png"_s}).status, 1);
    ASSERT_EQ(::mkfifo(QFile::encodeName(home.path() + u"/pipe.png"_s).constData(), 0600), 0);
    for (const QString &none : {QString(), home.path(), u"pipe.png"_s, u"/dev/null"_s}) {
        for (const QString &verb : {u"set"_s, u"upscale"_s}) {
            EXPECT_EQ(run({verb, none}).status, 1) << verb.toStdString() << ' ' << none.toStdString();
        }
    }
    // An upscale costs, so it is not tried with what is no picture.
    const qsizetype requests = service.requests().size();
    EXPECT_EQ(run({u"upscale"_s, u"prompts.json"_s}).status, 1);
    EXPECT_EQ(service.requests().size(), requests);
    EXPECT_EQ(run({u"status"_s, u"--json"_s}).json()["currentWallpaper"_L1], QJsonValue(path));
}

TEST_F(CommandsTest, upscaleMakesACopyThroughTheService)
{
    const QString path = generate(u"a lake"_s);
    // The copy must not be made in the second that named its source.
    QImage source(16, 9, QImage::Format_RGB32);
    source.fill(Qt::red);
    const QString older = home.library() + u"/older.png"_s;
    ASSERT_TRUE(source.save(older));
    const CommandRun made = run({u"upscale"_s, u"older.png"_s, u"--json"_s});
    EXPECT_EQ(made.status, 0) << made.errors.constData();
    EXPECT_EQ(made.json()["original"_L1], QJsonValue(older));
    const QString copy = made.json()["file"_L1].toString();
    EXPECT_EQ(QImage(copy).width(), 3840);
    EXPECT_TRUE(made.errors.startsWith("Upscaling to 4K...\n"));
    const QJsonValue newest = run({u"history"_s, u"--json"_s}).json()[0];
    EXPECT_EQ(newest["variant"_L1].toString(), u"older.png"_s);
    EXPECT_TRUE(QFile::exists(path) || path == copy);
}

TEST_F(CommandsTest, withoutANetworkLocalUpscalingSaysSo)
{
    const CommandRun none = run({u"model"_s});
    EXPECT_EQ(none.status, 1);
    EXPECT_TRUE(none.errors.contains("RealESRGAN model not found in app bundle"));
    EXPECT_TRUE(run({u"model"_s, u"--json"_s}).json()["file"_L1].isNull());
    EXPECT_EQ(run({u"model"_s, u"install"_s, u"/etc/passwd"_s}).status, 1);
    EXPECT_EQ(run({u"settings"_s, u"upscaleMethod"_s, u"local"_s}).status, 0);
    QImage source(16, 9, QImage::Format_RGB32);
    source.fill(Qt::red);
    const QString picture = home.path() + u"/a.png"_s;
    ASSERT_TRUE(source.save(picture));
    const CommandRun failed = run({u"upscale"_s, picture});
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.output, "Upscale failed: Invalid response: RealESRGAN model not found in app bundle\n");
}

TEST_F(CommandsTest, autoAndAutostartAreSwitches)
{
    EXPECT_EQ(run({u"auto"_s, u"on"_s}).status, 0);
    EXPECT_TRUE(run({u"status"_s, u"--json"_s}).json()["autoEnabled"_L1].toBool());
    EXPECT_EQ(run({u"auto"_s, u"off"_s}).status, 0);
    EXPECT_FALSE(run({u"status"_s, u"--json"_s}).json()["autoEnabled"_L1].toBool(true));

    const QString entry = home.path() + u"/.config/autostart/app.quorvane.Quorvane.desktop"_s;
    EXPECT_EQ(run({u"autostart"_s, u"on"_s}).status, 0);
    EXPECT_TRUE(contentOf(entry).contains("\nExec=\"" QUORVANE_PROGRAM "\" --hidden\n"))
        << contentOf(entry).constData();
    EXPECT_EQ(run({u"autostart"_s, u"off"_s}).status, 0);
    EXPECT_FALSE(QFile::exists(entry));
    EXPECT_EQ(run({u"autostart"_s, u"off"_s}).status, 0);
}

TEST_F(CommandsTest, theSystemsProxyIsAsked)
{
    QTcpServer proxy;
    ASSERT_TRUE(proxy.listen(QHostAddress::LocalHost));
    environment.insert(u"https_proxy"_s, u"http://127.0.0.1:%1"_s.arg(proxy.serverPort()));
    environment.insert(u"QUORVANE_GEMINI_BASE_URL"_s, u"https://service.example"_s);
    ASSERT_EQ(run({u"key"_s, u"set"_s, u"gemini"_s}, "KEY").status, 0);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(QUORVANE_PROGRAM), {u"generate"_s});
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
        const CommandRun said = run({u"--help"_s});
        EXPECT_TRUE(said.output.startsWith(beginning)) << environment.toStringList().join(' '_L1).toStdString() << '\n'
                                                       << said.output.left(40).constData();
    }
}

TEST_F(CommandsTest, whatScriptsReadIsTheSameInEveryLanguage)
{
    environment.insert(u"LC_ALL"_s, u"de_DE.UTF-8"_s);
    const CommandRun failed = run({u"generate"_s, u"--json"_s});
    EXPECT_EQ(failed.status, 1);
    EXPECT_TRUE(failed.json()["isError"_L1].toBool());
    EXPECT_EQ(failed.json()["status"_L1].toString(),
              u"API-Schlüssel für Gemini fehlt – öffnen Sie die Einstellungen (⌘,)"_s);
    const CommandRun wrong = run({u"bilden"_s});
    EXPECT_EQ(wrong.status, 2);
    EXPECT_EQ(wrong.errors, "quorvane: unbekannter Befehl bilden\n");

    // Not even the names of files follow a locale with other digits.
    environment.insert(u"LC_ALL"_s, u"fa_IR.UTF-8"_s);
    const QString path = generate(u"a lake"_s);
    const QRegularExpression name(u"/wallpaper_20[0-9]{2}-[0-9]{2}-[0-9]{2}_[0-9]{2}-[0-9]{2}-[0-9]{2}\\.(png|jpg)$"_s);
    EXPECT_TRUE(name.match(path).hasMatch()) << path.toStdString();
    const QJsonObject status = run({u"status"_s, u"--json"_s}).json().toObject();
    EXPECT_EQ(status.value("provider"_L1).toString(), u"gemini"_s);
    EXPECT_EQ(status.value("currentWallpaper"_L1).toString(), path);
}

TEST_F(CommandsTest, aWrongCommandLineEndsWithTwoAndDoesNothing)
{
    for (const QStringList &arguments : {QStringList{u"paint"_s},
                                         {u"--loud"_s},
                                         {u"set"_s},
                                         {u"generate"_s, u"extra"_s},
                                         {u"key"_s, u"set"_s},
                                         {u"key"_s, u"set"_s, u"nobody"_s}}) {
        const CommandRun refused = run(arguments);
        EXPECT_EQ(refused.status, 2) << arguments.join(' '_L1).toStdString();
        EXPECT_TRUE(refused.errors.startsWith("quorvane: "));
        EXPECT_TRUE(refused.output.isEmpty());
    }
    EXPECT_EQ(run({u"--help"_s}).status, 0);
    EXPECT_TRUE(run({u"--version"_s}).output.startsWith("quorvane "));
    EXPECT_FALSE(QFile::exists(home.library()));
}

} // namespace quorvane
