// What is installed beside the program, judged by the programs that judge such files.

#include "InstalledTree.h"

#include "App/Command/CommandTable.h"
#include "Support/Files.h"

#include <QImageReader>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quorvane {

using InstalledFilesTest = InstalledTest;

TEST_F(InstalledFilesTest, theDesktopEntryIsValidAndItsActionsAreTheProgramsOwn)
{
    const QString entry = installed(u"share/applications/app.quorvane.Quorvane.desktop"_s);
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
    const CommandRun judged = runOther(u"desktop-file-validate"_s, {entry});
    EXPECT_EQ(judged.status, 0);
    EXPECT_EQ(judged.output, "");
}

TEST_F(InstalledFilesTest, everyFileHasTheSameId)
{
    const QString id = u"app.quorvane.Quorvane"_s;
    for (const char *path :
         {"share/applications/%1.desktop", "share/metainfo/%1.metainfo.xml", "share/dbus-1/services/%1.service",
          "share/icons/hicolor/scalable/apps/%1.svg", "share/icons/hicolor/symbolic/apps/%1-symbolic.svg"}) {
        EXPECT_TRUE(QFile::exists(installed(QString::fromLatin1(path).arg(id)))) << path;
    }
    EXPECT_TRUE(QFile::exists(installed(u"share/dbus-1/interfaces/app.quorvane.Quorvane1.xml"_s)));
    const QString service = u"share/dbus-1/services/%1.service"_s.arg(id);
    EXPECT_EQ(contentOf(installed(service)),
              "[D-BUS Service]\nName=app.quorvane.Quorvane\nExec=" + program().toUtf8() + " --hidden\n");
}

TEST_F(InstalledFilesTest, theMetainfoIsValid)
{
    SKIP_WITHOUT("appstreamcli");
    // Before version 1.0 it does not know the element for the developer; scripts/lint is stricter where it can be.
    const CommandRun judged = runOther(
        u"appstreamcli"_s, {u"validate"_s, u"--strict"_s, u"--no-net"_s, u"--override"_s, u"unknown-tag=pedantic"_s,
                            installed(u"share/metainfo/app.quorvane.Quorvane.metainfo.xml"_s)});
    EXPECT_EQ(judged.status, 0) << judged.output.constData() << judged.errors.constData();
}

TEST_F(InstalledFilesTest, theIconsCanBeDrawn)
{
    for (const char *path :
         {"scalable/apps/app.quorvane.Quorvane.svg", "symbolic/apps/app.quorvane.Quorvane-symbolic.svg"}) {
        const QImage image = QImageReader(installed(u"share/icons/hicolor/"_s + QLatin1String(path))).read();
        ASSERT_FALSE(image.isNull()) << path;
        EXPECT_EQ(image.width(), image.height());
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0) << path;
    }
}

TEST_F(InstalledFilesTest, theManPageHasNoWarnings)
{
    SKIP_WITHOUT("man");
    const CommandRun judged = runOther(u"man"_s, {u"--warnings"_s, u"--local-file"_s, u"-Tutf8"_s, u"-Z"_s,
                                                  installed(u"share/man/man1/quorvane.1"_s)});
    EXPECT_EQ(judged.status, 0);
    EXPECT_EQ(judged.errors, "");
}

TEST_F(InstalledFilesTest, manPageAndCompletionsNameEveryCommandAndOption)
{
    QByteArrayList words{"--hidden", "--action", "--json", "--help", "--version", "--prompt", "--unset"};
    for (const CommandForm &form : commandForms()) {
        words.append(form.name.toUtf8());
        words.append(form.action.toUtf8());
    }
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
    ASSERT_TRUE(putFile(session.home().library() + u"/a picture.png"_s));
    const auto completionsOf = [this](const QString &line) {
        const QString script =
            u"source \"$1\"; compopt() { :; }; COMP_WORDS=(%1); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
            "_quorvane; printf '%s|' \"${COMPREPLY[@]}\""_s.arg(line);
        const CommandRun run = runOther(
            u"bash"_s, {u"-c"_s, script, u"bash"_s, installed(u"share/bash-completion/completions/quorvane"_s)});
        EXPECT_EQ(run.errors, "");
        return run.output;
    };
    EXPECT_EQ(completionsOf(u"quorvane au"_s), "auto|autostart|");
    EXPECT_EQ(completionsOf(u"quorvane key ''"_s), "list|set|delete|");
    EXPECT_EQ(completionsOf(u"quorvane key set g"_s), "gemini|grok|");
    EXPECT_EQ(completionsOf(u"quorvane --action t"_s), "toggle-auto|");
    EXPECT_EQ(completionsOf(u"quorvane settings upscaleMethod ''"_s), "gemini|local|");
    EXPECT_EQ(completionsOf(u"quorvane delete a"_s), "a picture.png|");
}

TEST_F(InstalledFilesTest, fishCompletes)
{
    SKIP_WITHOUT("fish");
    ASSERT_TRUE(putFile(session.home().library() + u"/a picture.png"_s));
    const auto completionsOf = [this](const QString &line) {
        const CommandRun run =
            runOther(u"fish"_s, {u"--no-config"_s, u"--command"_s,
                                 u"source $argv[1]; complete --do-complete $argv[2] | string split --fields 1 \\t"_s,
                                 installed(u"share/fish/vendor_completions.d/quorvane.fish"_s), line});
        EXPECT_EQ(run.errors, "");
        return run.output;
    };
    EXPECT_EQ(completionsOf(u"quorvane au"_s), "auto\nautostart\n");
    EXPECT_EQ(completionsOf(u"quorvane key "_s), "delete\nlist\nset\n");
    EXPECT_EQ(completionsOf(u"quorvane key set "_s), "gemini\ngrok\nopenai\n");
    EXPECT_EQ(completionsOf(u"quorvane delete a"_s), "a picture.png\n");
}

TEST_F(InstalledFilesTest, zshReadsItsCompletion)
{
    SKIP_WITHOUT("zsh");
    const CommandRun run =
        runOther(u"zsh"_s, {u"-f"_s, u"-c"_s,
                            u"fpath=($1 $fpath); autoload -Uz compinit; compinit -u -D; print $_comps[quorvane]; "
                            "autoload +X -Uz _quorvane"_s,
                            u"zsh"_s, installed(u"share/zsh/site-functions"_s)});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "_quorvane\n");
    EXPECT_EQ(run.errors, "");
}

} // namespace quorvane
