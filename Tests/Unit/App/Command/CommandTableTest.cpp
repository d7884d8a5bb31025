// The commands and settings stand in one table each; what else lists them is held to it here.

#include "Unit/App/Command/CommandTableFixture.h"

#include "App/Command/CommandTable.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// The forms that the manual page explains: its tagged paragraphs, without roff's marks.
QStringList manualForms()
{
    const QString commands = resource("man/quorvane.1").section(u".SH COMMANDS"_s, 1).section(u".SH OPTIONS"_s, 0, 0);
    QStringList all;
    for (QString line : found(commands, u"^\\.TP\\n\\.[A-Z]+ (.*)$"_s)) {
        line.replace(QRegularExpression(u"\\\\f[A-Z]"_s), QString());
        line.replace(u"\\-"_s, u"-"_s);
        // Outside quotes a space only sets arguments of the macro apart; the fonts alternate.
        QString text;
        bool isQuoted = false;
        const bool alternates = line.contains('"'_L1) || !line.contains(' '_L1);
        for (const QChar character : line) {
            if (character == '"'_L1) {
                isQuoted = !isQuoted;
            } else if (isQuoted || character != ' '_L1 || !alternates) {
                text += character;
            }
        }
        all.append(text);
    }
    return all;
}

} // namespace

TEST(CommandTable, everyFormIsReadAsItIsWritten)
{
    for (const CommandForm &form : commandForms()) {
        QStringList arguments = usage(form).split(' '_L1);
        arguments.removeIf([](const QString &word) { return word.startsWith('['_L1) || word.endsWith(']'_L1); });
        arguments.replaceInStrings(u"ID"_s, u"grok"_s).replaceInStrings(u"on|off"_s, u"on"_s);
        const Result<CommandLine> line = parseCommandLine(arguments);
        ASSERT_TRUE(line) << usage(form).toStdString();
        EXPECT_EQ(formOf(*line), &form) << usage(form).toStdString();
    }
}

TEST(CommandTable, theHelpHasEveryForm)
{
    const QStringList lines = helpText().split('\n'_L1);
    for (const CommandForm &form : commandForms()) {
        const QString line = u"  "_s + usage(form).leftJustified(28) + QLatin1String(form.summary);
        EXPECT_TRUE(lines.contains(line)) << line.toStdString();
    }
    for (const QString &line : lines) {
        EXPECT_LE(line.size(), 90) << line.toStdString();
    }
    EXPECT_EQ(usage(CommandLine::Verb::Key), u"quorvane key list | key set ID | key delete ID"_s);
}

TEST(CommandTable, theManualExplainsEveryForm)
{
    QStringList forms;
    for (const CommandForm &form : commandForms()) {
        forms.append(usage(form));
    }
    EXPECT_EQ(manualForms(), forms);
}

} // namespace quorvane
