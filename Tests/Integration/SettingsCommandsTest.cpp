#include "Integration/CommandsFixture.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quorvane {

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

} // namespace quorvane
