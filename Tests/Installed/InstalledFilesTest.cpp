// What is installed beside the program, judged by the programs that judge such files.

#include "InstalledTree.h"

#include "App/Command/CommandLine.h"
#include "Support/Files.h"

#include <QImageReader>
#include <QStandardPaths>

namespace quorvane {

using InstalledFilesTest = InstalledTest;

TEST_F(InstalledFilesTest, theDesktopEntryIsValidAndItsActionsAreTheProgramsOwn)
{
    const QString entry = installed(QStringLiteral("share/applications/app.quorvane.Quorvane.desktop"));
    const QByteArray content = contentOf(entry);
    const qsizetype start = content.indexOf("\nActions=") + 9;
    const QList<QByteArray> actions = content.mid(start, content.indexOf('\n', start) - start).split(';');
    EXPECT_EQ(actions.size(), 5);
    for (const QByteArray &action : actions) {
        if (!action.isEmpty()) {
            EXPECT_TRUE(CommandLine::isDesktopAction(QString::fromUtf8(action))) << action.constData();
            EXPECT_TRUE(content.contains("\n[Desktop Action " + action + "]\nName=")) << action.constData();
        }
    }
    SKIP_WITHOUT("desktop-file-validate");
    const CommandRun judged = runOther(QStringLiteral("desktop-file-validate"), {entry});
    EXPECT_EQ(judged.status, 0);
    EXPECT_EQ(judged.output, "");
}

TEST_F(InstalledFilesTest, everyFileHasTheSameId)
{
    const QString id = QStringLiteral("app.quorvane.Quorvane");
    for (const char *path :
         {"share/applications/%1.desktop", "share/metainfo/%1.metainfo.xml", "share/dbus-1/services/%1.service",
          "share/icons/hicolor/scalable/apps/%1.svg", "share/icons/hicolor/symbolic/apps/%1-symbolic.svg"}) {
        EXPECT_TRUE(QFile::exists(installed(QString::fromLatin1(path).arg(id)))) << path;
    }
    const QString service = QStringLiteral("share/dbus-1/services/%1.service").arg(id);
    EXPECT_EQ(contentOf(installed(service)),
              "[D-BUS Service]\nName=app.quorvane.Quorvane\nExec=" + program().toUtf8() + " --hidden\n");
}

TEST_F(InstalledFilesTest, theMetainfoIsValid)
{
    SKIP_WITHOUT("appstreamcli");
    // Before version 1.0 it does not know the element for the developer; scripts/lint is stricter where it can be.
    const CommandRun judged =
        runOther(QStringLiteral("appstreamcli"),
                 {QStringLiteral("validate"), QStringLiteral("--strict"), QStringLiteral("--no-net"),
                  QStringLiteral("--override"), QStringLiteral("unknown-tag=pedantic"),
                  installed(QStringLiteral("share/metainfo/app.quorvane.Quorvane.metainfo.xml"))});
    EXPECT_EQ(judged.status, 0) << judged.output.constData() << judged.errors.constData();
}

TEST_F(InstalledFilesTest, theIconsCanBeDrawn)
{
    for (const char *path :
         {"scalable/apps/app.quorvane.Quorvane.svg", "symbolic/apps/app.quorvane.Quorvane-symbolic.svg"}) {
        const QImage image =
            QImageReader(installed(QStringLiteral("share/icons/hicolor/") + QLatin1String(path))).read();
        ASSERT_FALSE(image.isNull()) << path;
        EXPECT_EQ(image.width(), image.height());
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << path;
    }
}

TEST_F(InstalledFilesTest, theManPageHasNoWarnings)
{
    SKIP_WITHOUT("man");
    const CommandRun judged = runOther(
        QStringLiteral("man"), {QStringLiteral("--warnings"), QStringLiteral("--local-file"), QStringLiteral("-Tutf8"),
                                QStringLiteral("-Z"), installed(QStringLiteral("share/man/man1/quorvane.1"))});
    EXPECT_EQ(judged.status, 0);
    EXPECT_EQ(judged.errors, "");
}

TEST_F(InstalledFilesTest, manPageAndCompletionsNameEveryCommandAndOption)
{
    QByteArrayList words{"--hidden", "--action", "--json", "--help", "--version", "--prompt", "--unset"};
    for (const QString &line : helpText().split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("  ")) && line.at(2).isLower()) {
            const QString names = line.mid(2, 28);
            words.append(names.section(QLatin1Char(' '), 0, 0).remove(QLatin1Char(',')).toUtf8());
            if (names.contains(QLatin1Char(','))) {
                words.append(names.section(QLatin1Char(' '), 1, 1).toUtf8());
            }
        }
    }
    EXPECT_EQ(words.size(), 7 + 14);
    for (const char *path : {"share/man/man1/quorvane.1", "share/bash-completion/completions/quorvane",
                             "share/zsh/site-functions/_quorvane", "share/fish/vendor_completions.d/quorvane.fish"}) {
        QByteArray content = contentOf(installed(QLatin1String(path)));
        content.replace("\\-", "-").replace("--long-option ", "--");
        for (const QByteArray &word : words) {
            EXPECT_TRUE(content.contains(word)) << path << " does not name " << word.constData();
        }
    }
}

TEST_F(InstalledFilesTest, bashCompletes)
{
    SKIP_WITHOUT("bash");
    ASSERT_TRUE(putFile(session.home().library() + QStringLiteral("/a picture.png")));
    const auto completionsOf = [this](const QString &line) {
        const QString script =
            QStringLiteral("source \"$1\"; compopt() { :; }; COMP_WORDS=(%1); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
                           "_quorvane; printf '%s|' \"${COMPREPLY[@]}\"")
                .arg(line);
        const CommandRun run =
            runOther(QStringLiteral("bash"), {QStringLiteral("-c"), script, QStringLiteral("bash"),
                                              installed(QStringLiteral("share/bash-completion/completions/quorvane"))});
        EXPECT_EQ(run.errors, "");
        return run.output;
    };
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane au")), "auto|autostart|");
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane key ''")), "list|set|delete|");
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane key set g")), "gemini|grok|");
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane --action t")), "toggle-auto|");
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane settings upscaleMethod ''")), "gemini|local|");
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane delete a")), "a picture.png|");
}

TEST_F(InstalledFilesTest, fishCompletes)
{
    SKIP_WITHOUT("fish");
    ASSERT_TRUE(putFile(session.home().library() + QStringLiteral("/a picture.png")));
    const auto completionsOf = [this](const QString &line) {
        const CommandRun run =
            runOther(QStringLiteral("fish"),
                     {QStringLiteral("--no-config"), QStringLiteral("--command"),
                      QStringLiteral("source $argv[1]; complete --do-complete $argv[2] | string split --fields 1 \\t"),
                      installed(QStringLiteral("share/fish/vendor_completions.d/quorvane.fish")), line});
        EXPECT_EQ(run.errors, "");
        return run.output;
    };
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane au")), "auto\nautostart\n");
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane key ")), "delete\nlist\nset\n");
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane key set ")), "gemini\ngrok\nopenai\n");
    EXPECT_EQ(completionsOf(QStringLiteral("quorvane delete a")), "a picture.png\n");
}

TEST_F(InstalledFilesTest, zshReadsItsCompletion)
{
    SKIP_WITHOUT("zsh");
    const CommandRun run =
        runOther(QStringLiteral("zsh"),
                 {QStringLiteral("-f"), QStringLiteral("-c"),
                  QStringLiteral("fpath=($1 $fpath); autoload -Uz compinit; compinit -u -D; print $_comps[quorvane]; "
                                 "autoload +X -Uz _quorvane"),
                  QStringLiteral("zsh"), installed(QStringLiteral("share/zsh/site-functions"))});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "_quorvane\n");
    EXPECT_EQ(run.errors, "");
}

} // namespace quorvane
