// The program as scripts use it: real runs, in a home of their own, with the demonstration service.

#include "Integration/CommandsFixture.h"

#include "Support/Files.h"

#include <QJsonObject>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
