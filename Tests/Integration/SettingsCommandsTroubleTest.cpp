#include "Integration/CommandsFixture.h"

#include "Support/Files.h"
#include "Support/SmallDisk.h"

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
