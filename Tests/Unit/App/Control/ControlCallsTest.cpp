#include "App/Control/ControlCalls.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

CommandLine lineOf(const QStringList &arguments)
{
    const auto parsed = parseCommandLine(arguments);
    EXPECT_TRUE(parsed) << arguments.join(' '_L1).toStdString();
    return *parsed;
}

} // namespace

TEST(ControlCalls, everyForwardedCommandComesOutAsItWentIn)
{
    const QList<QStringList> commands{
        {u"generate"_s},
        {u"generate"_s, u"--prompt"_s, u"--a \"lake\", 水\n"_s},
        {u"generate"_s, u"--prompt="_s},
        {u"upscale"_s, u"/a b.png"_s},
        {u"set"_s, u"--"_s, u"-a.png"_s},
        {u"favorite"_s, u"/a.png"_s},
        {u"delete"_s, u"/a.png"_s},
        {u"auto"_s, u"on"_s},
        {u"auto"_s, u"off"_s},
        {u"settings"_s},
        {u"settings"_s, u"lastPrompt"_s},
        {u"settings"_s, u"lastPrompt"_s, u"--json"_s},
        {u"settings"_s, u"lastPrompt"_s, u"-x --json"_s},
        {u"settings"_s, u"lastPrompt"_s, QString()},
        {u"settings"_s, u"--unset"_s, u"lastPrompt"_s},
        {u"key"_s, u"list"_s},
        {u"key"_s, u"delete"_s, u"grok"_s},
        {u"status"_s},
        {u"cancel"_s},
        {u"quit"_s},
    };
    for (const QStringList &command : commands) {
        CommandLine line = lineOf(command);
        const auto call = Control::callFor(line);
        ASSERT_TRUE(call) << command.join(' '_L1).toStdString();
        const auto back = Control::lineFrom(*call);
        ASSERT_TRUE(back) << call->method.toStdString();
        EXPECT_EQ(back->verb, line.verb);
        EXPECT_EQ(back->arguments, line.arguments);
        EXPECT_EQ(back->prompt, line.prompt);
        EXPECT_EQ(back->unset, line.unset);
    }
}

TEST(ControlCalls, aKeyTravelsAsAnArgumentOfItsOwn)
{
    CommandLine line = lineOf({u"key"_s, u"set"_s, u"openai"_s});
    line.secret = u"--secret"_s;
    const auto call = Control::callFor(line);
    ASSERT_TRUE(call);
    EXPECT_EQ(*call, (Control::Call{u"SetKey"_s, {u"openai"_s, u"--secret"_s}}));
    const auto back = Control::lineFrom(*call);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->secret, line.secret);
    EXPECT_EQ(back->arguments, line.arguments);
}

TEST(ControlCalls, whatEveryProcessDoesByItselfIsNoCall)
{
    for (const char *word : {"history", "albums", "model"}) {
        EXPECT_FALSE(Control::callFor(lineOf({QLatin1String(word)}))) << word;
    }
    EXPECT_FALSE(Control::callFor(lineOf({u"autostart"_s, u"on"_s})));
    EXPECT_FALSE(Control::callFor(lineOf({})));
}

TEST(ControlCalls, otherProgramsCanCallThatToo)
{
    const auto autostart = Control::lineFrom({u"Autostart"_s, {false}});
    ASSERT_TRUE(autostart);
    EXPECT_EQ(autostart->verb, CommandLine::Verb::Autostart);
    EXPECT_EQ(autostart->arguments, QStringList{u"off"_s});
    const auto model = Control::lineFrom({u"Model"_s, {}});
    ASSERT_TRUE(model);
    EXPECT_EQ(model->verb, CommandLine::Verb::Model);
    const auto install = Control::lineFrom({u"InstallModel"_s, {u"--a.onnx"_s}});
    ASSERT_TRUE(install);
    EXPECT_EQ(install->arguments, (QStringList{u"install"_s, u"--a.onnx"_s}));
}

TEST(ControlCalls, whatTheCommandLineWouldRefuseIsRefused)
{
    const QString text = u"x"_s;
    const QList<Control::Call> calls{
        {u"Nothing"_s, {}},
        {u"Upscale"_s, {}},
        {u"Upscale"_s, {text, text}},
        {u"Upscale"_s, {1}},
        {u"Generate"_s, {}},
        {u"Generate"_s, {text}},
        {u"Generate"_s, {QVariantMap{{u"prompt"_s, 1}}}},
        {u"Auto"_s, {text}},
        {u"Autostart"_s, {text}},
        {u"InstallModel"_s, {}},
        {u"SetKey"_s, {text, text}},
        {u"SetKey"_s, {u"gemini"_s}},
        {u"DeleteKey"_s, {text}},
        {u"Cancel"_s, {text}},
        {u"Quit"_s, {text}},
    };
    for (const Control::Call &call : calls) {
        EXPECT_FALSE(Control::lineFrom(call)) << call.method.toStdString();
    }
}

} // namespace quorvane
