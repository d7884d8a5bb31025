#include "Unit/App/Command/CommandTableFixture.h"

#include "App/Command/CommandTable.h"

#include "App/Command/Services.h"
#include "App/Command/SettingsTable.h"
#include "Providers/ImageServices.h"
#include "Support/PrivateHome.h"

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QStringList commandNames()
{
    QStringList names;
    for (const CommandForm &form : commandForms()) {
        names.append(form.name);
    }
    names.removeDuplicates();
    return names;
}

QStringList words(const QString &text)
{
    return text.split(QRegularExpression(u"\\\\n|[\\s\\\\]+"_s), Qt::SkipEmptyParts);
}

} // namespace

TEST(CommandTable, bashCompletesWhatThereIs)
{
    const QString bash = resource("completions/quorvane.bash");
    const QStringList lists = found(bash, u"_quorvane_words \\$'([^']*)'"_s);
    EXPECT_TRUE(lists.contains(commandNames().join(u"\\n"_s))) << commandNames().join(u"\\n"_s).toStdString();
    for (const CommandForm &form : commandForms()) {
        const bool hasPlace = bash.contains(QRegularExpression(u"\\b%1\\b[^\\n]*\\)"_s.arg(form.name)));
        EXPECT_TRUE(hasPlace || (form.arguments.isEmpty() && form.action.isEmpty())) << usage(form).toStdString();
        EXPECT_TRUE(form.action.isEmpty() || bash.contains(form.action)) << usage(form).toStdString();
    }
}

TEST(CommandTable, fishCompletesWhatThereIs)
{
    const QString fish = resource("completions/quorvane.fish");
    EXPECT_EQ(words(found(fish, u"^set --local commands (.*)$"_s).value(0)), commandNames());
    EXPECT_EQ(found(fish, u"--condition __fish_use_subcommand --arguments (\\w+) "_s), commandNames());
}

TEST(CommandTable, zshCompletesWhatThereIs)
{
    const QString zsh = resource("completions/quorvane.zsh");
    EXPECT_EQ(found(zsh, u"^        '([a-z]+):"_s), commandNames());
}

TEST(CommandTable, theCompletionsAndTheManualKnowTheServices)
{
    const QStringList ids = serviceIds();
    const QString listed = ids.join(' '_L1);
    EXPECT_TRUE(
        resource("completions/quorvane.bash").contains(u"delete) _quorvane_words $'%1'"_s.arg(ids.join(u"\\n"_s))));
    EXPECT_TRUE(resource("completions/quorvane.fish").contains(u"set delete\" --arguments \"%1\""_s.arg(listed)));
    EXPECT_TRUE(resource("completions/quorvane.zsh").contains(u"'2:service:(%1)'"_s.arg(listed)));
    const QString manual = resource("man/quorvane.1");
    for (const QString &id : ids) {
        EXPECT_TRUE(manual.contains(QRegularExpression(u"\n\\.BR? %1\\b"_s.arg(id)))) << id.toStdString();
    }
}

TEST(CommandTable, theCompletionsKnowTheSettingsAndTheirValues)
{
    const PrivateHome home;
    Services services(Services::Life::OneCommand);
    const SettingsTable table(services.manager, services.defaults);
    const QString bash = resource("completions/quorvane.bash");
    const QString fish = resource("completions/quorvane.fish");
    const QString zsh = resource("completions/quorvane.zsh");
    QStringList keys;
    for (const Setting &setting : table.settings()) {
        keys.append(setting.key);
        const bool isModel = setting.key.startsWith("selectedModel_"_L1);
        const QStringList values =
            setting.kind == Setting::Kind::Switch ? QStringList{u"true"_s, u"false"_s} : setting.choices;
        if (values.isEmpty() || isModel) {
            continue; // Models come and go with the services.
        }
        const QString bashCase =
            u"\\b%1\\b[^)]*\\) _quorvane_words \\$'%2'"_s.arg(setting.key, values.join(u"\\\\n"_s));
        EXPECT_TRUE(bash.contains(QRegularExpression(bashCase))) << bashCase.toStdString();
        const QString fishLine =
            u"__fish_prev_arg_in [^\"]*\\b%1\\b[^\"]*\" --arguments \"%2\""_s.arg(setting.key, values.join(' '_L1));
        EXPECT_TRUE(fish.contains(QRegularExpression(fishLine))) << fishLine.toStdString();
        const QString zshCase = u"\\b%1\\b[^)]*\\) _values value %2 ;;"_s.arg(setting.key, values.join(' '_L1));
        EXPECT_TRUE(zsh.contains(QRegularExpression(zshCase))) << zshCase.toStdString();
    }
    EXPECT_TRUE(found(bash, u"_quorvane_words \\$'([^']*)'"_s).contains(keys.join(u"\\n"_s)));
    EXPECT_TRUE(fish.contains(
        u"--condition \"__fish_prev_arg_in settings --unset\" --arguments \"%1\""_s.arg(keys.join(' '_L1))));
    EXPECT_EQ(words(zsh.section(u"_values setting "_s, 1).section('}'_L1, 0, 0)), keys);
}

} // namespace quorvane
