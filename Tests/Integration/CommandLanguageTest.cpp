#include "Integration/CommandsFixture.h"

#include <QJsonObject>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quorvane {

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
